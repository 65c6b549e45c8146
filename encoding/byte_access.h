// SPDX-License-Identifier: MIT
//
// Several bytes of memory as one number, at any alignment and on either byte order.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace vellumark::encoding {

inline constexpr bool kLittleEndian = std::endian::native == std::endian::little;

constexpr std::uint32_t SwapBytes(std::uint32_t value) {
  return value << 24 | (value & 0xFF00U) << 8 | (value >> 8 & 0xFF00U) | value >> 24;
}

constexpr std::uint64_t SwapBytes(std::uint64_t value) {
  return static_cast<std::uint64_t>(SwapBytes(static_cast<std::uint32_t>(value))) << 32 |
         SwapBytes(static_cast<std::uint32_t>(value >> 32));
}

/// The bytes at `from`, the first one lowest.
template <typename Number>
Number LoadLittleEndian(const std::uint8_t* from) {
  Number value = 0;
  std::memcpy(&value, from, sizeof value);
  return kLittleEndian ? value : SwapBytes(value);
}

/// The bytes at `from`, the first one highest.
template <typename Number>
Number LoadBigEndian(const std::uint8_t* from) {
  Number value = 0;
  std::memcpy(&value, from, sizeof value);
  return kLittleEndian ? SwapBytes(value) : value;
}

template <typename Number>
void StoreLittleEndian(std::uint8_t* to, Number value) {
  const Number ordered = kLittleEndian ? value : SwapBytes(value);
  std::memcpy(to, &ordered, sizeof ordered);
}

/// Counts the equal bytes at the front of `a` and `b`, at most `limit`; reads no byte past it.
inline std::int32_t CountEqualBytes(const std::uint8_t* a, const std::uint8_t* b,
                                    std::int32_t limit) {
  std::int32_t count = 0;
  for (; count + 8 <= limit; count += 8) {
    const std::uint64_t difference =
        LoadLittleEndian<std::uint64_t>(a + count) ^ LoadLittleEndian<std::uint64_t>(b + count);
    if (difference != 0) return count + std::countr_zero(difference) / 8;
  }
  while (count < limit && a[count] == b[count]) ++count;
  return count;
}

/// How many bytes from `start` are equal, at most `longest`. `start` is a byte of `data`.
inline std::size_t RunAt(std::span<const std::uint8_t> data, std::size_t start,
                         std::size_t longest) {
  const std::size_t limit = std::min(longest, data.size() - start) - 1;
  return 1 + static_cast<std::size_t>(CountEqualBytes(data.data() + start, data.data() + start + 1,
                                                      static_cast<std::int32_t>(limit)));
}

}  // namespace vellumark::encoding
