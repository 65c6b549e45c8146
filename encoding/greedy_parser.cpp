// SPDX-License-Identifier: MIT
#include "encoding/greedy_parser.h"

namespace vellumark::encoding {

void GreedyParser::Run() {
  Position position = 0;
  for (;;) {
    position -= MoveWindow(position);
    if (AtEnd(position)) break;
    for (const Position end = StretchEnd(); position < end;) position = Step(position);
  }
  WriteBlock(position, true);
}

// Sends a match or a literal; returns the position behind it.
inline Position GreedyParser::Step(Position position) {
  Match match = {0, kNoPosition};
  if (HasThreeBytes(position)) match = finder_.Find(position);
  if (match.length < format::kMinMatch) {
    const bool full = symbols_.AddLiteral(*finder_.Bytes().At(position), BlockBytes(position));
    if (full) WriteBlock(position + 1, false);
    return position + 1;
  }
  const bool full = symbols_.AddMatch(match.length, position - match.start, BlockBytes(position));
  const Position end = position + match.length;
  // The strings inside long matches are not worth the time.
  if (match.length <= parameters_.lazy_length && HasThreeBytes(end)) {
    finder_.Insert(position + 1, end);
  }
  if (full) WriteBlock(end, false);
  return end;
}

}  // namespace vellumark::encoding
