// SPDX-License-Identifier: MIT
//
// Window: the stretch of the input in which matches are looked for.
//
// It is two steps of 32,768 bytes long and moves by a step when fewer than 262 of its bytes are
// still ahead; nothing is copied, it is a pointer into the input. Positions are counted from its
// start, so that 16 bits hold them, and become smaller by a step when it moves: RebasedPosition.
// Position 0 also means "none" and is never matched; neither is anything before the window's start,
// where positions are negative.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/deflate_format.h"
#include "encoding/level_parameters.h"

namespace vellumark::encoding {

using Position = std::int32_t;

inline constexpr Position kNoPosition = 0;

/// `length` bytes that also stand at position `start`.
struct Match {
  std::int32_t length;
  Position start;
};

class Window {
 public:
  static constexpr std::int32_t kStep = 32768;
  static constexpr std::int32_t kLength = 2 * kStep;
  static constexpr std::int32_t kGreatestDistance = kStep - 262;

  explicit Window(std::span<const std::uint8_t> input)
      : bytes_(input.data()), end_(static_cast<std::ptrdiff_t>(input.size())) {}

  /// The bytes from a position on, to be read up to End().
  [[nodiscard]] const std::uint8_t* At(Position position) const { return bytes_ + position; }
  /// The end of the input, as a position.
  [[nodiscard]] std::ptrdiff_t End() const { return end_; }
  [[nodiscard]] bool Holds(Position position, std::int32_t count) const {
    return position + std::ptrdiff_t{count} <= end_;
  }

  /// The window must be moved before anything is done at this position or a later one.
  [[nodiscard]] Position MoveFrom() const {
    constexpr Position kMoveFrom = kStep + kGreatestDistance;
    return end_ < kLength ? kMoveFrom : kMoveFrom + 1;
  }
  void Move() {
    bytes_ += kStep;
    end_ -= kStep;
  }

  /// What a position kept in 16 bits becomes when the window moves.
  static constexpr std::uint16_t RebasedPosition(std::uint16_t position) {
    const std::uint32_t all_if_kept = 0U - (position >> 15U);
    return static_cast<std::uint16_t>(position & (kStep - 1U) & all_if_kept);
  }

  /// The index of a position in a ring that holds one step of positions.
  static constexpr std::size_t RingIndex(Position position) {
    return static_cast<std::uint32_t>(position) % kStep;
  }

  /// Candidates at this position and below are out of reach, except the first one of a chain,
  /// which may stand exactly there.
  static constexpr Position LimitAt(Position position) {
    return position > kGreatestDistance ? position - kGreatestDistance : kNoPosition;
  }

 private:
  const std::uint8_t* bytes_;
  std::ptrdiff_t end_;
};

/// The frame of one search.
struct SearchLimits {
  std::int32_t reach;  ///< no match is longer: the format's limit, or the input's end
  std::int32_t nice;   ///< a match this long ends the search
  Position candidate;  ///< Window::LimitAt
  std::int32_t chain;  ///< candidates looked at
};

inline SearchLimits LimitsAt(Position position, const Window& window,
                             const LevelParameters& parameters, std::int32_t best_length) {
  const auto reach = static_cast<std::int32_t>(
      std::min<std::ptrdiff_t>(format::kMaxMatch, window.End() - position));
  return {reach, std::min<std::int32_t>(parameters.nice_length, reach), Window::LimitAt(position),
          best_length >= parameters.good_length ? parameters.chain_length / 4
                                                : parameters.chain_length};
}

}  // namespace vellumark::encoding
