// SPDX-License-Identifier: MIT
//
// Finds matches for the greedy method: one chain, walked for a few candidates.
#pragma once

#include <cstdint>
#include <span>

#include "encoding/hash_chain.h"
#include "encoding/level_parameters.h"
#include "encoding/window.h"

namespace vellumark::encoding {

class GreedyMatchFinder {
 public:
  GreedyMatchFinder(std::span<const std::uint8_t> input, const LevelParameters& parameters)
      : parameters_(parameters), window_(input) {}

  [[nodiscard]] const Window& Bytes() const { return window_; }

  /// Adds the position, from which at least three bytes remain, and returns the longest match
  /// there; a length below 3 means that there is none.
  Match Find(Position position) {
    const Position candidate = InsertOne(position);
    constexpr std::int32_t kNoMatch = format::kMinMatch - 1;
    if (candidate == kNoPosition || position - candidate > Window::kGreatestDistance) {
      return {kNoMatch, kNoPosition};
    }
    return chain_.Longest(window_, position, candidate, kNoMatch,
                          LimitsAt(position, window_, parameters_, kNoMatch));
  }

  /// Adds the positions from `first` to `end` - 1; at least three bytes remain from each.
  void Insert(Position first, Position end) {
    for (; first < end; ++first) InsertOne(first);
  }

  void MoveWindow() {
    chain_.Rebase();
    window_.Move();
  }

 private:
  Position InsertOne(Position position) {
    const std::uint8_t* const at = window_.At(position);
    return chain_.Insert(position, HashChain::Hash(at[0], at[1], at[2]));
  }

  LevelParameters parameters_;
  Window window_;
  HashChain chain_;
};

}  // namespace vellumark::encoding
