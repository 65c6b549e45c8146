// SPDX-License-Identifier: MIT
//
// Finds earlier copies of the bytes to come, through chains of positions with the same hash.
//
// Positions count from the start of a window that moves over the input in steps of 32,768 bytes;
// nothing is copied, the window is a pointer into the input. A position is known to the chains
// from its insertion until the window moves past it. Position 0 of the window, which doubles as
// "none", is never found.
//
//     MatchFinder finder(input, parameters);
//     if (finder.MustSlide(position)) position -= finder.Slide();
//     const std::uint32_t candidate = finder.Insert(position);
//     if (finder.InReach(position, candidate)) match = finder.Longest(position, candidate, 2);
//
// Which match comes out is part of the file's exact bytes: the longest of the first `chain_length`
// candidates, the nearest among equals.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/byte_access.h"
#include "encoding/deflate_format.h"
#include "encoding/level_parameters.h"

namespace vellumark::encoding {

/// `length` bytes that also stand at position `start`. The start is a window position and moves
/// with the window.
struct Match {
  std::uint32_t length;
  std::uint32_t start;
};

class MatchFinder {
 public:
  static constexpr std::uint32_t kWindowStep = 32768;
  static constexpr std::uint32_t kGreatestDistance = 32506;  // a step less 262
  static constexpr std::uint32_t kSlidePosition = kWindowStep + kGreatestDistance;
  static constexpr std::uint32_t kNone = 0;

  MatchFinder(std::span<const std::uint8_t> input, const LevelParameters& parameters)
      : parameters_(parameters), window_(input.data()), end_(input.size()) {}

  /// The input from the window's start on; may be read up to End().
  [[nodiscard]] const std::uint8_t* Window() const { return window_; }
  /// The end of the input as a window position.
  [[nodiscard]] std::size_t End() const { return end_; }

  /// The window has slid before a step from this position on is taken. The window is two steps
  /// long and slides when fewer than 262 of its bytes are ahead.
  [[nodiscard]] std::uint32_t SlideFrom() const {
    return end_ < 2 * kWindowStep ? kSlidePosition : kSlidePosition + 1;
  }

  /// Moves the window by a step; returns by how much positions have become smaller.
  std::uint32_t Slide();

  /// Makes the position, which has three bytes to come, known; returns the newest position with
  /// the same hash, or kNone.
  std::uint32_t Insert(std::uint32_t position) {
    const std::uint32_t hash = Hash(window_ + position);
    const std::uint32_t candidate = newest_[hash];
    previous_[position % kWindowStep] = static_cast<std::uint16_t>(candidate);
    newest_[hash] = static_cast<std::uint16_t>(position);
    return candidate;
  }

  /// Whether a candidate from Insert is there and near enough to begin a search with.
  static bool InReach(std::uint32_t position, std::uint32_t candidate) {
    return candidate != kNone && position - candidate <= kGreatestDistance;
  }

  /// The longest match if it is longer than `best_length` (at least 2), else that length.
  Match Longest(std::uint32_t position, std::uint32_t candidate, std::uint32_t best_length) const;

 private:
  static constexpr std::uint32_t kHashMask = 32767;

  static std::uint32_t Hash(const std::uint8_t* at) {
    return (static_cast<std::uint32_t>(at[0]) << 10 ^ static_cast<std::uint32_t>(at[1]) << 5 ^
            at[2]) &
           kHashMask;
  }

  LevelParameters parameters_;
  const std::uint8_t* window_;
  std::size_t end_;
  std::array<std::uint16_t, kHashMask + 1> newest_{};
  std::array<std::uint16_t, kWindowStep> previous_{};
};

inline Match MatchFinder::Longest(std::uint32_t position, std::uint32_t candidate,
                                  std::uint32_t best_length) const {
  const std::uint8_t* const here = window_ + position;
  const auto reach =
      static_cast<std::uint32_t>(std::min<std::size_t>(format::kMaxMatch, end_ - position));
  Match best = {best_length, kNone};
  if (best_length >= reach) return best;

  const std::uint32_t nice = std::min<std::uint32_t>(parameters_.nice_length, reach);
  const std::uint32_t limit = position > kGreatestDistance ? position - kGreatestDistance : 0;
  std::uint32_t chain = parameters_.chain_length;
  if (best_length >= parameters_.good_length) chain /= 4;
  for (;;) {
    const std::uint8_t* const there = window_ + candidate;
    if (there[best.length] == here[best.length] &&
        there[best.length - 1] == here[best.length - 1]) {
      const std::uint32_t length = CountEqualBytes(here, there, reach);
      if (length > best.length) {
        best = {length, candidate};
        if (length >= nice) return best;
      }
    }
    candidate = previous_[candidate % kWindowStep];
    if (candidate <= limit || --chain == 0) return best;
  }
}

}  // namespace vellumark::encoding
