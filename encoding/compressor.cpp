// SPDX-License-Identifier: MIT
#include "encoding/compressor.h"

#include <algorithm>
#include <optional>

namespace vellumark::encoding {

void Compressor::Run() {
  if (level_ < kFirstLazyLevel) {
    RunGreedy();
  } else {
    RunLazy();
  }
  WriteBlock(true);
}

bool Compressor::PrepareStep() {
  if (position_ >= finder_.SlideFrom()) {
    const std::uint32_t step = finder_.Slide();
    position_ -= step;
    block_start_ -= static_cast<std::int32_t>(step);
    current_.start -= step;
  }
  return position_ < finder_.End();
}

std::uint32_t Compressor::StepLimit() const {
  return static_cast<std::uint32_t>(std::min<std::size_t>(finder_.End(), finder_.SlideFrom()));
}

void Compressor::RunGreedy() {
  while (PrepareStep()) {
    for (const std::uint32_t limit = StepLimit(); position_ < limit;) {
      const std::uint32_t candidate = FindCandidate();
      Match match = {0, MatchFinder::kNone};
      if (MatchFinder::InReach(position_, candidate)) {
        match = finder_.Longest(position_, candidate, format::kMinMatch - 1);
      }
      bool full = false;
      if (match.length >= format::kMinMatch) {
        full = symbols_.Add(Symbol::Match(match.length, position_ - match.start), BlockBytes());
        const std::uint32_t end = position_ + match.length;
        if (match.length <= parameters_.lazy_length && HasThreeBytes(end)) {
          InsertUpTo(position_ + 1, end);
        }
        position_ = end;
      } else {
        full = symbols_.Add(Symbol::Literal(finder_.Window()[position_]), BlockBytes());
        ++position_;
      }
      if (full) WriteBlock(false);
    }
  }
}

void Compressor::RunLazy() {
  bool literal_waits = false;  // whether the byte before the position is still to be sent
  while (PrepareStep()) {
    for (const std::uint32_t limit = StepLimit(); position_ < limit;) {
      const std::uint32_t candidate = FindCandidate();
      const Match previous = current_;
      current_ = {format::kMinMatch - 1, MatchFinder::kNone};
      if (previous.length < parameters_.lazy_length && MatchFinder::InReach(position_, candidate)) {
        current_ = finder_.Longest(position_, candidate, previous.length);
        if (current_.length == format::kMinMatch &&
            position_ - current_.start > kFarForThreeBytes) {
          current_.length = format::kMinMatch - 1;
        }
      }
      if (previous.length >= format::kMinMatch && current_.length <= previous.length) {
        const bool full = symbols_.Add(
            Symbol::Match(previous.length, position_ - 1 - previous.start), BlockBytes());
        const std::uint32_t end = position_ - 1 + previous.length;
        InsertUpTo(position_ + 1, end);
        position_ = end;
        literal_waits = false;
        current_.length = format::kMinMatch - 1;
        if (full) WriteBlock(false);
      } else {
        if (literal_waits &&
            symbols_.Add(Symbol::Literal(finder_.Window()[position_ - 1]), BlockBytes())) {
          WriteBlock(false);
        }
        literal_waits = true;
        ++position_;
      }
    }
  }
  // Even a buffer that is now full is written once, as the final block.
  if (literal_waits) symbols_.Add(Symbol::Literal(finder_.Window()[position_ - 1]), BlockBytes());
}

void Compressor::InsertUpTo(std::uint32_t first, std::uint32_t end) {
  for (; first < end && HasThreeBytes(first); ++first) finder_.Insert(first);
}

void Compressor::WriteBlock(bool is_final) {
  std::optional<std::span<const std::uint8_t>> bytes;
  if (block_start_ >= 0) {
    bytes.emplace(finder_.Window() + block_start_, static_cast<std::size_t>(BlockBytes()));
  }
  blocks_.Write(symbols_.Symbols(), bytes, is_final);
  symbols_.Clear();
  block_start_ = static_cast<std::int32_t>(position_);
}

}  // namespace vellumark::encoding
