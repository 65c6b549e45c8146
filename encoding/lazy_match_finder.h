// SPDX-License-Identifier: MIT
//
// Finds matches for the lazy method, which may look at thousands of candidates per position.
//
// The match is the one that a walk along the chain of three-byte hashes finds: the longest among
// its first `chain_length` candidates. Most of those share three bytes and no more. So a second
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

  /// Makes a position known that has three bytes to come, and finds the longest match there if it
  /// is longer than `best_length` (at least 2); otherwise the length is no greater than that. A
  /// match of three bytes far away, which costs more than three literals mostly, is none.
  Match Find(std::uint32_t position, std::uint32_t best_length) {
    if (!window_.Holds(position, format::kMaxMatch)) return FindNearEnd(position, best_length);
    const std::uint32_t newest = InsertOne(position);
    if (position - newest == Window::kGreatestDistance) {
      return FindOnFirstChain(position, newest, best_length);
    }
    return FindOnSecondChain(position, newest, best_length);
  }

  /// Makes the positions from `first` up to `end` known; all have three bytes to come.
  void Insert(std::uint32_t first, std::uint32_t end);

  void MoveWindow();

 private:
  static constexpr std::uint32_t kFarForThreeBytes = 4096;
  static constexpr unsigned kHashBits = 16;

  static std::uint32_t Hash(std::uint32_t four_bytes) {
    return four_bytes * 0x9E3779B1U >> (32 - kHashBits);
  }

  /// Makes a position known that has four bytes to come; returns the newest of its first chain.
  std::uint32_t InsertOne(std::uint32_t position) {
    const auto bytes = LoadLittleEndian<std::uint32_t>(window_.At(position));
    const std::uint32_t newest = chain_.Insert(position, HashChain::Hash(bytes));
    std::uint16_t& newest_of_four = newest_of_four_[Hash(bytes)];
    links_[position % Window::kStep] = {
        newest_of_four, static_cast<std::uint16_t>(links_[newest % Window::kStep].ordinal + 1)};
    newest_of_four = static_cast<std::uint16_t>(position);
    return newest;
  }

  [[nodiscard]] bool IsRun(std::uint32_t position) const;
  std::uint32_t InsertRun(std::uint32_t first, std::uint32_t end);

  Match FindOnSecondChain(std::uint32_t position, std::uint32_t newest, std::uint32_t best_length);
  Match FindOnFirstChain(std::uint32_t position, std::uint32_t newest, std::uint32_t best_length);
  Match FindThreeBytes(std::uint32_t position, std::uint32_t newest, std::uint32_t chain) const;
  Match FindNearEnd(std::uint32_t position, std::uint32_t best_length);

  // A position's place: the one before it on the second chain, and how many were on its first
  // chain before it. Ordinals wrap around; differences within the window are right.
  struct Link {
    std::uint16_t previous;
    std::uint16_t ordinal;
  };

  LevelParameters parameters_;
  Window window_;
  HashChain chain_;
  std::array<std::uint16_t, 1U << kHashBits> newest_of_four_{};
  std::array<Link, Window::kStep> links_{};
};

// Candidates out of reach are read like others (they are in the window) and then dropped: on data
// with few matches that spares a branch which cannot be foretold.
inline Match LazyMatchFinder::FindOnSecondChain(std::uint32_t position, std::uint32_t newest,
                                                std::uint32_t best_length) {
  const SearchLimits limits = LimitsAt(position, window_, parameters_, best_length);
  const std::uint8_t* const here = window_.At(position);
  const auto first_bytes = LoadLittleEndian<std::uint32_t>(here);
  const Link own = links_[position % Window::kStep];

  Match best = {std::max(best_length, format::kMinMatch), kNoPosition};
  if (best_length == format::kMaxMatch) return best;
  auto tail = LoadLittleEndian<std::uint32_t>(here + best.length - 3);
  std::uint32_t candidate = own.previous;
  std::uint32_t steps = 4 * limits.chain;
  for (;;) {
    const Link link = links_[candidate % Window::kStep];
    const std::uint8_t* const there = window_.At(candidate);
    const bool in_reach = candidate > limits.candidate;
    const bool exhausted = static_cast<std::uint16_t>(own.ordinal - link.ordinal) > limits.chain;
    if ((LoadLittleEndian<std::uint32_t>(there + best.length - 3) == tail) & in_reach) {
      const std::uint32_t length = CountEqualBytes(here, there, format::kMaxMatch);
      if (length > best.length) {
        if (exhausted) break;
        best = {length, candidate};
        if (length >= limits.nice) return best;
        tail = LoadLittleEndian<std::uint32_t>(here + best.length - 3);
      }
    }
    candidate = in_reach ? link.previous : kNoPosition;
    if (candidate <= limits.candidate) break;
    // Ordinals of strangers, on the chain by a collision only, mean nothing.
    if (exhausted && (LoadLittleEndian<std::uint32_t>(there) ^ first_bytes) << 8 == 0) break;
    if (--steps == 0) return FindOnFirstChain(position, newest, best_length);
  }
  if (best_length >= format::kMinMatch || best.start != kNoPosition) return best;
  return FindThreeBytes(position, newest, limits.chain);
}

inline Match LazyMatchFinder::FindThreeBytes(std::uint32_t position, std::uint32_t newest,
                                             std::uint32_t chain) const {
  const std::uint32_t near =
      position > kFarForThreeBytes ? position - kFarForThreeBytes - 1 : kNoPosition;
  const auto bytes = LoadLittleEndian<std::uint32_t>(window_.At(position));
  std::uint32_t candidate = newest;
  for (;;) {
    const auto other = LoadLittleEndian<std::uint32_t>(window_.At(candidate));
    const bool in_reach = candidate > near;
    if (((bytes ^ other) << 8 == 0) & in_reach) return {format::kMinMatch, candidate};
    candidate = in_reach ? chain_.Before(candidate) : kNoPosition;
    if (candidate <= near || --chain == 0) return {format::kMinMatch - 1, kNoPosition};
  }
}

}  // namespace vellumark::encoding
