// SPDX-License-Identifier: MIT
#include "encoding/lazy_parser.h"

#include <algorithm>

namespace vellumark::encoding {

void LazyParser::Run() {
  for (;;) {
    current_.start -= MoveWindow();  // may pass zero; distances come out right
    if (AtEnd()) break;
    for (const std::uint32_t end = StretchEnd(); position_ < end;) Step();
  }
  // Whether that fills the block does not matter: the final block is due anyway.
  if (literal_waits_) SendWaitingLiteral();
  WriteBlock(true);
}

void LazyParser::Step() {
  const Match previous = current_;
  current_ = Find(previous.length);
  if (previous.length >= format::kMinMatch && current_.length <= previous.length) {
    SendPrevious(previous);
    return;
  }
  if (literal_waits_ && SendWaitingLiteral()) WriteBlock(false);
  literal_waits_ = true;
  ++position_;
}

Match LazyParser::Find(std::uint32_t best_length) {
  constexpr Match kNone = {kNoMatch, kNoPosition};
  if (!HasThreeBytes(position_)) return kNone;
  if (best_length < parameters_.lazy_length) return finder_.Find(position_, best_length);
  finder_.Insert(position_, position_ + 1);
  return kNone;
}

bool LazyParser::SendWaitingLiteral() {
  return symbols_.AddLiteral(*finder_.Bytes().At(position_ - 1), BlockBytes());
}

// The match began one position back.
void LazyParser::SendPrevious(Match previous) {
  const bool full =
      symbols_.AddMatch(previous.length, position_ - 1 - previous.start, BlockBytes());
  const std::uint32_t end = position_ - 1 + previous.length;
  const auto last_string = static_cast<std::uint32_t>(
      std::min<std::size_t>(end, finder_.Bytes().End() - (format::kMinMatch - 1)));
  finder_.Insert(position_ + 1, last_string);
  position_ = end;
  literal_waits_ = false;
  current_.length = kNoMatch;
  if (full) WriteBlock(false);
}

}  // namespace vellumark::encoding
