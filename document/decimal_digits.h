// SPDX-License-Identifier: MIT
//
// WriteInteger: an integer in decimal digits. A page is made of short numbers: those below 10,000
// are written at once, without a loop over their digits.
//
//     char text[kMostDigits];
//     char* end = WriteInteger(-72, text);          // -72
#pragma once

#include <array>
#include <bit>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

namespace vellumark::document {

/// Room for any integer. What lies behind the digits, within this, may be written over.
inline constexpr std::size_t kMostDigits = 20;

/// "00" to "99" one behind the other.
inline constexpr std::array<char, 200> kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}();

inline void WriteTwoDigits(std::uint32_t number, char* to) noexcept {
  std::memcpy(to, &kDigitPairs[2 * static_cast<std::size_t>(number)], 2);
}

/// Writes a number below 10,000; four bytes are touched in any case. Returns the end of the digits.
inline char* WriteUpToFourDigits(std::uint32_t number, char* to) noexcept {
  std::array<std::uint16_t, 2> pairs{};
  std::memcpy(&pairs[0], &kDigitPairs[2 * static_cast<std::size_t>(number / 100)], 2);
  std::memcpy(&pairs[1], &kDigitPairs[2 * static_cast<std::size_t>(number % 100)], 2);
  const int zeros = (number < 10 ? 1 : 0) + (number < 100 ? 1 : 0) + (number < 1000 ? 1 : 0);
  constexpr bool kLittle = std::endian::native == std::endian::little;
  std::uint32_t digits = kLittle ? pairs[0] | static_cast<std::uint32_t>(pairs[1]) << 16
                                 : pairs[1] | static_cast<std::uint32_t>(pairs[0]) << 16;
  digits = kLittle ? digits >> (8 * zeros) : digits << (8 * zeros);
  std::memcpy(to, &digits, 4);
  return to + 4 - zeros;
}

template <std::integral Integer>
char* WriteInteger(Integer value, char* to) noexcept {
  using Unsigned = std::make_unsigned_t<Integer>;
  auto rest = static_cast<Unsigned>(value);
  if (value < 0) {
    *to++ = '-';
    rest = static_cast<Unsigned>(0 - rest);
  }
  constexpr bool kMayBeLong = std::numeric_limits<Unsigned>::max() >= 100000000;
  if (kMayBeLong && rest >= 100000000) [[unlikely]] {
    return std::to_chars(to, to + kMostDigits - 1, rest).ptr;
  }
  const auto number = static_cast<std::uint32_t>(rest);
  if (number < 10000) return WriteUpToFourDigits(number, to);
  to = WriteUpToFourDigits(number / 10000, to);
  WriteTwoDigits(number / 100 % 100, to);
  WriteTwoDigits(number % 100, to + 2);
  return to + 4;
}

}  // namespace vellumark::document
