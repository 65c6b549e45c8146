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

  /// Makes a position known; returns the newest one before it, or kNoPosition.
  std::uint32_t Insert(std::uint32_t position, std::uint32_t hash) {
    const std::uint32_t newest = newest_[hash];
    previous_[position % Window::kStep] = static_cast<std::uint16_t>(newest);
    newest_[hash] = static_cast<std::uint16_t>(position);
    return newest;
  }

  /// Makes `count` positions from `first` on known, which have the hash of the one before them.
  void InsertRun(std::uint32_t first, std::uint32_t count, std::uint32_t hash) {
    for (std::uint32_t position = first; position < first + count; ++position) {
      previous_[position % Window::kStep] = static_cast<std::uint16_t>(position - 1);
    }
    newest_[hash] = static_cast<std::uint16_t>(first + count - 1);
  }

  [[nodiscard]] std::uint32_t Before(std::uint32_t position) const {
    return previous_[position % Window::kStep];
  }

  /// The longest match, if it is longer than `best_length` (at least 2), on the chain that begins
  /// with `candidate`; otherwise that length. The candidate must be in reach.
  [[nodiscard]] Match Longest(const Window& window, std::uint32_t position, std::uint32_t candidate,
                              std::uint32_t best_length, SearchLimits limits) const {
    Match best = {best_length, kNoPosition};
    if (best_length >= limits.reach) return best;
    const std::uint8_t* const here = window.At(position);
    do {
      const std::uint8_t* const there = window.At(candidate);
      // A longer match has the last four bytes up to the next length; at length 2, where there are
      // only three, the byte before them is masked out. No candidate stands at position 0.
      if (DiffersUpTo(here, there, best.length)) continue;
      const std::uint32_t length = CountEqualBytes(here, there, limits.reach);
      if (length <= best.length) continue;
      best = {length, candidate};
      if (length >= limits.nice) break;
    } while ((candidate = Before(candidate)) > limits.candidate && --limits.chain != 0);
    return best;
  }

  void Rebase() {
    for (std::uint16_t& position : newest_) Rebase(position);
    for (std::uint16_t& position : previous_) Rebase(position);
  }

 private:
  static constexpr std::uint32_t kHashMask = 32767;

  static void Rebase(std::uint16_t& position) {
    position = static_cast<std::uint16_t>(Window::RebasedPosition(position));
  }

  static bool DiffersUpTo(const std::uint8_t* a, const std::uint8_t* b, std::uint32_t last) {
    const std::uint32_t difference = LoadLittleEndian<std::uint32_t>(a + last - 3) ^
                                     LoadLittleEndian<std::uint32_t>(b + last - 3);
    return (last == 2 ? difference >> 8 : difference) != 0;
  }

  std::array<std::uint16_t, kHashMask + 1> newest_{};
  std::array<std::uint16_t, Window::kStep> previous_{};
};

}  // namespace vellumark::encoding
