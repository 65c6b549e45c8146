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
  static constexpr Match kNoMatch = {format::kMinMatch - 1, kNoPosition};

  // What one step hands to the next.
  struct State {
    Position position;
    Match current;       // found at the position before
    bool literal_waits;  // the byte before the position is not yet sent
  };

  State Step(State state);
  State SendPrevious(const State& state, Match previous);
  Match Find(Position position, std::int32_t best_length);
  bool SendWaitingLiteral(Position position);
};

}  // namespace vellumark::encoding
