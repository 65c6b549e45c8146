// SPDX-License-Identifier: MIT
#include "encoding/lazy_parser.h"

namespace vellumark::encoding {

void LazyParser::Run() {
  State state = {0, kNoMatch, false};
  for (;;) {
    const Position moved = MoveWindow(state.position);
    state.position -= moved;
    state.current.start -= moved;  // may become negative; distances stay right
    if (AtEnd(state.position)) break;
    for (const Position end = StretchEnd(); state.position < end;) state = Step(state);
  }
  // Whether this fills the block does not matter: the final block follows anyway.
  if (state.literal_waits) SendWaitingLiteral(state.position);
  WriteBlock(state.position, true);
}

// The state goes by value, which keeps it in registers.
inline LazyParser::State LazyParser::Step(State state) {
  const Match previous = state.current;
  state.current = Find(state.position, previous.length);
  if (previous.length >= format::kMinMatch && state.current.length <= previous.length) {
    return SendPrevious(state, previous);
  }
  if (state.literal_waits && SendWaitingLiteral(state.position)) WriteBlock(state.position, false);
  return {state.position + 1, state.current, true};
}

// The match began one position back.
inline LazyParser::State LazyParser::SendPrevious(const State& state, Match previous) {
  const Position start = state.position - 1;
  const bool full =
      symbols_.AddMatch(previous.length, start - previous.start, BlockBytes(state.position));
  const Position end = start + previous.length;
  finder_.Insert(state.position + 1, end);
  if (full) WriteBlock(end, false);
  return {end, kNoMatch, false};
}

inline Match LazyParser::Find(Position position, std::int32_t best_length) {
  if (!HasThreeBytes(position)) return kNoMatch;
  if (best_length < parameters_.lazy_length) return finder_.Find(position, best_length);
  finder_.Insert(position, position + 1);
  return kNoMatch;
}

inline bool LazyParser::SendWaitingLiteral(Position position) {
  return symbols_.AddLiteral(*finder_.Bytes().At(position - 1), BlockBytes(position));
}

}  // namespace vellumark::encoding
