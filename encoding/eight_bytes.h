// SPDX-License-Identifier: MIT
//
// Questions about eight bytes at once, held in one number in any order.
//
//     HasByte(eight, '(')           one of them is a parenthesis
//     to = CopyByEight(bytes, to, special, write);
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

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

/// Copies `bytes` to `to`, and returns their end there: as they are, eight at a time, because most
/// text has nothing special. Where `special(eight)` says that one of eight bytes is, and for those
/// that remain in the end, `write(bytes, to)` writes them, likewise.
template <class Special, class Write>
char* CopyByEight(std::string_view bytes, char* to, const Special& special, const Write& write) {
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) {
    const std::uint64_t eight = LoadEight(bytes.data());
    if (special(eight)) {
      to = write(bytes.substr(0, 8), to);
    } else {
      std::memcpy(to, &eight, 8);
      to += 8;
    }
  }
  return write(bytes, to);
}

}  // namespace vellumark::encoding
