// SPDX-License-Identifier: MIT
//
// IsIn: whether a character is in a list of ranges.
//
//     constexpr CharacterRange kDigits[] = {{'0', '9'}, {0x0660, 0x0669}};
//     IsIn(kDigits, c)
#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace vellumark::layout {

struct CharacterRange {
  char32_t first;
  char32_t last;  ///< belongs to the range
};

template <std::size_t kCount>
constexpr bool IsIn(const CharacterRange (&ranges)[kCount], char32_t c) {
  return std::any_of(std::begin(ranges), std::end(ranges), [c](const CharacterRange& range) {
    return c >= range.first && c <= range.last;
  });
}

}  // namespace vellumark::layout
