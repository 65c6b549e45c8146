// SPDX-License-Identifier: MIT
//
// The lazy method (levels 4 to 9): before a match is taken, the next position is tried, and if it
// has a longer one, a literal is sent instead.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "encoding/lazy_match_finder.h"
#include "encoding/parser.h"

namespace vellumark::encoding {

class LazyParser : private Parser<LazyMatchFinder> {
 public:
  /// Appends to `output`, which must outlive the parser.
  LazyParser(std::span<const std::uint8_t> input, int level, std::string& output)
      : Parser(input, level, output) {}

  /// Compresses the whole input.
  void Run();

 private:
  static constexpr std::uint32_t kNoMatch = format::kMinMatch - 1;

  void Step();
  Match Find(std::uint32_t best_length);
  bool SendWaitingLiteral();
  void SendPrevious(Match previous);

  Match current_ = {kNoMatch, kNoPosition};  // found at the position before
  bool literal_waits_ = false;               // the byte before the position is not yet sent
};

}  // namespace vellumark::encoding
