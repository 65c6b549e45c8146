// SPDX-License-Identifier: MIT
//
// Window: the stretch of the input in which matches are looked for.
//
// It is two steps of 32,768 bytes long and moves by a step when fewer than 262 of its bytes are
// still ahead; nothing is copied, it is a pointer into the input. Positions are counted from its
// start, so that 16 bits hold them, and become smaller by a step when it moves: RebasedPosition.
// Position 0 doubles as "none" and is never matched, nor is anything before the window's start.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/deflate_format.h"
#include "encoding/level_parameters.h"

namespace vellumark::encoding {

inline constexpr std::uint32_t kNoPosition = 0;

/// `length` bytes that also stand at position `start`.
struct Match {
  std::uint32_t length;
  std::uint32_t start;
};

class Window {
 public:
  static constexpr std::uint32_t kStep = 32768;
  static constexpr std::uint32_t kGreatestDistance = kStep - 262;

  explicit Window(std::span<const std::uint8_t> input) : bytes_(input.data()), end_(input.size()) {}

  /// The bytes from a position on, to be read up to End().
  [[nodiscard]] const std::uint8_t* At(std::uint32_t position) const { return bytes_ + position; }
  /// The end of the input, as a position.
  [[nodiscard]] std::size_t End() const { return end_; }
  [[nodiscard]] bool Holds(std::uint32_t position, std::uint32_t count) const {
    return position + std::size_t{count} <= end_;
  }

  /// The window has moved before anything is done at this position or a later one.
  [[nodiscard]] std::uint32_t MoveFrom() const {
    constexpr std::uint32_t kMoveFrom = kStep + kGreatestDistance;
    return end_ < 2 * kStep ? kMoveFrom : kMoveFrom + 1;
  }
  void Move() {
    bytes_ += kStep;
    end_ -= kStep;
  }

  /// What a position kept in 16 bits becomes when the window moves.
  static constexpr std::uint32_t RebasedPosition(std::uint32_t position) {
    const std::uint32_t all_if_kept = 0U - (position >> 15 & 1U);
    return position & (kStep - 1) & all_if_kept;
  }

  /// Candidates at this position and below are out of reach, but for the first of a chain, which
  /// may stand exactly there.
  static constexpr std::uint32_t LimitAt(std::uint32_t position) {
    return position > kGreatestDistance ? position - kGreatestDistance : kNoPosition;
  }

 private:
  const std::uint8_t* bytes_;
  std::size_t end_;
};

/// The frame of one search.
struct SearchLimits {
  std::uint32_t reach;      ///< no match is longer: the format's limit, or the input's end
  std::uint32_t nice;       ///< a match this long ends the search
  std::uint32_t candidate;  ///< Window::LimitAt
  std::uint32_t chain;      ///< candidates looked at
};

inline SearchLimits LimitsAt(std::uint32_t position, const Window& window,
                             const LevelParameters& parameters, std::uint32_t best_length) {
  const auto reach =
      static_cast<std::uint32_t>(std::min<std::size_t>(format::kMaxMatch, window.End() - position));
  return {reach, std::min<std::uint32_t>(parameters.nice_length, reach), Window::LimitAt(position),
          best_length >= parameters.good_length ? parameters.chain_length / 4U
                                                : parameters.chain_length};
}

}  // namespace vellumark::encoding
