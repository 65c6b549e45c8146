// SPDX-License-Identifier: MIT
//
// Questions about eight bytes at once, held in one number in any order.
//
//     HasByte(eight, '(')           one of them is a parenthesis
#pragma once

#include <cstdint>
#include <cstring>

namespace vellumark::encoding {

inline constexpr std::uint64_t kEachOfEight = 0x0101010101010101;
inline constexpr std::uint64_t kHighBits = 0x80 * kEachOfEight;

/// The eight bytes at `from`, in the machine's order.
inline std::uint64_t LoadEight(const char* from) noexcept {
  std::uint64_t eight = 0;
  std::memcpy(&eight, from, sizeof eight);
  return eight;
}

/// Whether a byte is below `limit`, which is 1 to 128.
constexpr bool HasBelow(std::uint64_t eight, std::uint8_t limit) noexcept {
  return ((eight - limit * kEachOfEight) & ~eight & kHighBits) != 0;
}

/// Whether a byte is `value`.
constexpr bool HasByte(std::uint64_t eight, char value) noexcept {
  return HasBelow(eight ^ static_cast<std::uint8_t>(value) * kEachOfEight, 1);
}

/// Whether a byte is "(" or ")".
constexpr bool HasParenthesis(std::uint64_t eight) noexcept {
  return HasByte(eight | kEachOfEight, ')');
}

/// Whether a byte is not a printable ASCII character.
constexpr bool HasUnprintable(std::uint64_t eight) noexcept {
  return HasBelow(eight, ' ') || ((eight | (eight + kEachOfEight)) & kHighBits) != 0;
}

}  // namespace vellumark::encoding
