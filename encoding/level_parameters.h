// SPDX-License-Identifier: MIT
//
// What a compression level means: how hard the match finder looks, and which method parses.
#pragma once

#include <array>
#include <cstdint>

namespace vellumark::encoding {

struct LevelParameters {
  std::uint16_t good_length;   ///< a previous match this long quarters the chain
  std::uint16_t lazy_length;   ///< lazy: a previous match this long is taken without looking on;
                               ///< greedy: the longest match whose strings are all inserted
  std::uint16_t nice_length;   ///< a match this long ends the search
  std::uint16_t chain_length;  ///< candidates looked at
};

inline constexpr int kFastestLevel = 1;
inline constexpr int kSmallestLevel = 9;
inline constexpr int kFirstLazyLevel = 4;
inline constexpr int kFirstEarlyCutLevel = 3;  // see SymbolBuffer

/// Parameters of levels 1 to 9.
inline constexpr std::array<LevelParameters, 9> kLevelParameters = {{
    {4, 4, 8, 4},
    {4, 5, 16, 8},
    {4, 6, 32, 32},
    {4, 4, 16, 16},
    {8, 16, 32, 32},
    {8, 16, 128, 128},
    {8, 32, 128, 256},
    {32, 128, 258, 1024},
    {32, 258, 258, 4096},
}};

}  // namespace vellumark::encoding
