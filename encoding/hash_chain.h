// SPDX-License-Identifier: MIT
//
// HashChain: positions with the same hash of three bytes, from the newest back.
//
// The hash, the order and the number of candidates looked at decide which match is found and so
// belong to the exact bytes of the output: the longest match wins, and the nearest among equals.
#pragma once

#include <array>
#include <cstdint>

#include "encoding/byte_access.h"
#include "encoding/window.h"

namespace vellumark::encoding {

class HashChain {
 public:
  static constexpr std::uint32_t Hash(std::uint32_t first, std::uint32_t second,
                                      std::uint32_t third) {
    return (first << 10 ^ second << 5 ^ third) & kHashMask;
  }
  /// The hash of the three low bytes of a number in little-endian order.
  static constexpr std::uint32_t Hash(std::uint32_t bytes) {
    return (bytes << 10 ^ (bytes >> 3 & 0x1FE0U) ^ (bytes >> 16 & 0xFFU)) & kHashMask;
  }

  /// Adds a position; returns the newest earlier one with the same hash, or kNoPosition.
  Position Insert(Position position, std::uint32_t hash) {
    const Position newest = newest_[hash];
    distances_[Window::RingIndex(position)] = static_cast<std::uint16_t>(position - newest);
    newest_[hash] = static_cast<std::uint16_t>(position);
    return newest;
  }

  /// Adds positions that have the same hash as the one before `first`.
  void InsertRun(Position first, Position end, std::uint32_t hash) {
    for (Position position = first; position < end; ++position) {
      distances_[Window::RingIndex(position)] = 1;
    }
    newest_[hash] = static_cast<std::uint16_t>(end - 1);
  }

  /// The position before this one on its chain. If this one is out of reach, so is every position
  /// before it.
  [[nodiscard]] Position Before(Position position) const {
    return position - distances_[Window::RingIndex(position)];
  }

  /// The longest match, if it is longer than `best_length` (at least 2), on the chain that begins
  /// with `candidate`; otherwise that length. The candidate must be in reach.
  [[nodiscard]] Match Longest(const Window& window, Position position, Position candidate,
                              std::int32_t best_length, SearchLimits limits) const {
    Match best = {best_length, kNoPosition};
    if (best_length >= limits.reach) return best;
    const std::uint8_t* const here = window.At(position);
    do {
      const std::uint8_t* const there = window.At(candidate);
      if (DiffersUpTo(best.length, here, there)) continue;
      const std::int32_t length = CountEqualBytes(here, there, limits.reach);
      if (length <= best.length) continue;
      best = {length, candidate};
      if (length >= limits.nice) break;
    } while ((candidate = Before(candidate)) > limits.candidate && --limits.chain != 0);
    return best;
  }

  /// The window moves. Only the newest positions are kept as such; the rest are distances.
  void Rebase() {
    for (std::uint16_t& position : newest_) position = Window::RebasedPosition(position);
  }

 private:
  static constexpr std::uint32_t kHashMask = 32767;

  // Whether a match cannot be longer than `length`: compares the four bytes that end behind it. At
  // length 2, where there are only three, the byte before them is left out; it can be read, since
  // no candidate stands at position 0.
  static bool DiffersUpTo(std::int32_t length, const std::uint8_t* a, const std::uint8_t* b) {
    const std::uint32_t difference = LoadLittleEndian<std::uint32_t>(a + length - 3) ^
                                     LoadLittleEndian<std::uint32_t>(b + length - 3);
    return (length == 2 ? difference >> 8 : difference) != 0;
  }

  std::array<std::uint16_t, kHashMask + 1> newest_{};
  std::array<std::uint16_t, Window::kStep> distances_{};  // to the position before
};

}  // namespace vellumark::encoding
