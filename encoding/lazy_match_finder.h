// SPDX-License-Identifier: MIT
//
// Finds matches for the lazy method, which may look at thousands of candidates per position.
//
// The match is the one that a walk along the chain of three-byte hashes finds: the longest among
// its first `chain_length` candidates. Most of those share only three bytes. So a second
// chain links positions by a hash of four bytes, and each position has its ordinal on the
// three-byte chain: a candidate from the second chain that matches in three bytes is on the first
// chain too, and the difference of the ordinals says at which place. The walk along the second
// chain therefore sees all candidates worth looking at, in the same order, and stops at the same
// place; only matches of exactly three bytes are looked for on the first.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "encoding/byte_access.h"
#include "encoding/hash_chain.h"
#include "encoding/level_parameters.h"
#include "encoding/window.h"

namespace vellumark::encoding {

class LazyMatchFinder {
 public:
  LazyMatchFinder(std::span<const std::uint8_t> input, const LevelParameters& parameters)
      : parameters_(parameters), window_(input) {}

  [[nodiscard]] const Window& Bytes() const { return window_; }

  /// Adds a position from which at least three bytes remain, and returns the longest match there
  /// if it is longer than `best_length` (at least 2); otherwise the length is at most that. A
  /// match of three bytes far away does not count: it usually costs more than three literals.
  Match Find(Position position, std::int32_t best_length) {
    if (!window_.Holds(position, format::kMaxMatch)) return FindNearEnd(position, best_length);
    const Position newest = InsertOne(position);
    if (position - newest == Window::kGreatestDistance) {
      return FindOnFirstChain(position, newest, best_length);
    }
    return FindOnSecondChain(position, newest, best_length);
  }

  /// Adds the positions from `first` to `end` - 1 from which more than three bytes remain: no
  /// string begins behind the others that could be found there.
  void Insert(Position first, Position end);

  void MoveWindow();

 private:
  static constexpr std::int32_t kFarForThreeBytes = 4096;
  static constexpr unsigned kHashBits = 16;

  static std::uint32_t Hash(std::uint32_t four_bytes) {
    return four_bytes * 0x9E3779B1U >> (32 - kHashBits);
  }

  /// Adds a position from which at least four bytes remain; returns the newest of its first chain.
  Position InsertOne(Position position) {
    const auto bytes = LoadLittleEndian<std::uint32_t>(window_.At(position));
    const Position newest = chain_.Insert(position, HashChain::Hash(bytes));
    std::uint16_t& newest_of_four = newest_of_four_[Hash(bytes)];
    links_[Window::RingIndex(position)] = {position - newest_of_four,
                                           links_[Window::RingIndex(newest)].Ordinal() + 1};
    newest_of_four = static_cast<std::uint16_t>(position);
    return newest;
  }

  [[nodiscard]] bool IsRun(Position position) const;
  Position InsertRun(Position first, Position end);

  [[nodiscard]] Match FindOnSecondChain(Position position, Position newest,
                                        std::int32_t best_length) const;
  [[nodiscard]] Match FindThreeBytes(Position position, Position newest, std::int32_t chain) const;
  [[nodiscard]] Match FindOnFirstChain(Position position, Position newest,
                                       std::int32_t best_length) const;
  Match FindNearEnd(Position position, std::int32_t best_length);

  // A position's place: how far back the one before it on the second chain is, in the low half,
  // and how many were on its first chain before it, its ordinal, in the high half. Ordinals wrap
  // around; differences within the window are right.
  class Link {
   public:
    Link() = default;
    Link(std::int32_t distance, std::uint32_t ordinal)
        : word_(static_cast<std::uint32_t>(distance) | ordinal << 16) {}

    [[nodiscard]] std::int32_t Distance() const { return word_ & 0xFFFFU; }
    [[nodiscard]] std::uint32_t Ordinal() const { return word_ >> 16; }

    /// Whether `earlier`, if it is on the same first chain, is more than `chain` places before
    /// this. In one subtraction: its distance, from 1 to 65,535, borrows at most one place, and
    /// turns "at least one place more" into "more".
    [[nodiscard]] bool IsBeyond(std::int32_t chain, Link earlier) const {
      return (word_ & 0xFFFF0000U) - earlier.word_ > static_cast<std::uint32_t>(chain) << 16;
    }

   private:
    std::uint32_t word_ = 0;
  };

  LevelParameters parameters_;
  Window window_;
  HashChain chain_;
  std::array<std::uint16_t, 1U << kHashBits> newest_of_four_{};
  std::array<Link, Window::kStep> links_{};
};

// A first candidate that is out of reach is read like the others, which is harmless, and dropped
// afterward: on data with few matches this avoids branches that the processor cannot predict.
inline Match LazyMatchFinder::FindOnSecondChain(Position position, Position newest,
                                                std::int32_t best_length) const {
  const SearchLimits limits = LimitsAt(position, window_, parameters_, best_length);
  const std::uint8_t* const here = window_.At(position);
  const auto first_bytes = LoadLittleEndian<std::uint32_t>(here);
  const Link own = links_[Window::RingIndex(position)];

  Match best = {std::max(best_length, format::kMinMatch), kNoPosition};
  if (best_length == format::kMaxMatch) return best;
  auto tail = LoadLittleEndian<std::uint32_t>(here + best.length - 3);
  Position candidate = position - own.Distance();
  std::int32_t strangers = limits.chain;
  for (;;) {
    const Link link = links_[Window::RingIndex(candidate)];
    const std::uint8_t* const there = window_.At(candidate);
    if (LoadLittleEndian<std::uint32_t>(there + best.length - 3) == tail &&
        candidate > limits.candidate) {
      const std::int32_t length = CountEqualBytes(here, there, format::kMaxMatch);
      if (length > best.length) {
        if (own.IsBeyond(limits.chain, link)) break;
        best = {length, candidate};
        if (length >= limits.nice) return best;
        tail = LoadLittleEndian<std::uint32_t>(here + best.length - 3);
      }
    }
    candidate -= link.Distance();
    if (candidate <= limits.candidate) break;
    if (own.IsBeyond(limits.chain, link)) {
      // The ordinal of a stranger, on this chain only by a hash collision, means nothing.
      if ((LoadLittleEndian<std::uint32_t>(there) ^ first_bytes) << 8 == 0) break;
      if (--strangers == 0) return FindOnFirstChain(position, newest, best_length);
    }
  }
  if (best_length >= format::kMinMatch || best.start != kNoPosition) return best;
  return FindThreeBytes(position, newest, limits.chain);
}

inline Match LazyMatchFinder::FindThreeBytes(Position position, Position newest,
                                             std::int32_t chain) const {
  const Position near = std::max(position - kFarForThreeBytes - 1, kNoPosition);
  const auto bytes = LoadLittleEndian<std::uint32_t>(window_.At(position));
  Position candidate = newest;
  for (;;) {
    const auto other = LoadLittleEndian<std::uint32_t>(window_.At(candidate));
    if (((bytes ^ other) << 8 == 0) & (candidate > near)) return {format::kMinMatch, candidate};
    candidate = chain_.Before(candidate);
    if (candidate <= near || --chain == 0) return {format::kMinMatch - 1, kNoPosition};
  }
}

}  // namespace vellumark::encoding
