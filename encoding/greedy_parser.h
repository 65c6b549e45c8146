// SPDX-License-Identifier: MIT
//
// The greedy method (levels 1 to 3): the match that is found is taken.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "encoding/greedy_match_finder.h"
#include "encoding/parser.h"

namespace vellumark::encoding {

class GreedyParser : private Parser<GreedyMatchFinder> {
 public:
  /// Appends to `output`, which must outlive the parser.
  GreedyParser(std::span<const std::uint8_t> input, int level, std::string& output)
      : Parser(input, level, output) {}

  /// Compresses the whole input.
  void Run();

 private:
  Position Step(Position position);
};

}  // namespace vellumark::encoding
