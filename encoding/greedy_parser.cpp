// SPDX-License-Identifier: MIT
#include "encoding/greedy_parser.h"

namespace vellumark::encoding {

void GreedyParser::Run() {
  for (;;) {
    MoveWindow();
    if (AtEnd()) break;
    for (const std::uint32_t end = StretchEnd(); position_ < end;) {
      if (Step()) WriteBlock(false);
    }
  }
  WriteBlock(true);
}

// Sends a match or a literal; true when the block is full.
bool GreedyParser::Step() {
  Match match = {0, kNoPosition};
  if (HasThreeBytes(position_)) match = finder_.Find(position_);
  if (match.length < format::kMinMatch) {
    const bool full = symbols_.AddLiteral(*finder_.Bytes().At(position_), BlockBytes());
    ++position_;
    return full;
  }
  const bool full = symbols_.AddMatch(match.length, position_ - match.start, BlockBytes());
  const std::uint32_t end = position_ + match.length;
  // The strings inside long matches are not worth the time.
  if (match.length <= parameters_.lazy_length && HasThreeBytes(end)) {
    finder_.Insert(position_ + 1, end);
  }
  position_ = end;
  return full;
}

}  // namespace vellumark::encoding
