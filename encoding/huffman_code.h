// SPDX-License-Identifier: MIT
//
// Huffman codes of limited length, from symbol frequencies.
//
// Many sets of code lengths are equally short; which one comes out is fixed here to the bit, so
// that the same input gives the same file everywhere: by the order of the heap and by how lengths
// beyond the limit are repaired (huffman_code.cpp).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/deflate_format.h"

namespace vellumark::encoding {

/// One code: its bits in the order of sending (the first one lowest), and their number.
struct HuffmanCode {
  std::uint16_t bits = 0;
  std::uint16_t length = 0;  ///< 0: the symbol does not occur
};

/// Gives every symbol with a frequency a code length of at most `max_length`. If fewer than two
/// symbols occur, one or two of symbols 0 to 2 get a code too. Returns one more than the highest
/// symbol that has a length.
std::size_t BuildCodeLengths(std::span<const std::uint16_t> frequencies, int max_length,
                             std::span<HuffmanCode> codes);

/// Gives every symbol the canonical code of its length (RFC 1951, 3.2.2).
constexpr void AssignCodes(std::span<HuffmanCode> codes) {
  std::array<std::uint16_t, format::kMaxCodeLength + 2> next{};
  for (const HuffmanCode& code : codes) ++next[code.length + 1U];
  next[1] = 0;
  for (std::size_t length = 2; length < next.size(); ++length) {
    next[length] = static_cast<std::uint16_t>((next[length - 1] + next[length]) << 1);
  }
  for (HuffmanCode& code : codes) {
    if (code.length == 0) continue;
    unsigned value = next[code.length]++;
    unsigned reversed = 0;
    for (int i = 0; i < code.length; ++i, value >>= 1) reversed = reversed << 1 | (value & 1U);
    code.bits = static_cast<std::uint16_t>(reversed);
  }
}

}  // namespace vellumark::encoding
