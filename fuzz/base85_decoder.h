// SPDX-License-Identifier: MIT
//
// DecodeBase85: base-85 text back into bytes, as readers do it. The tests and the fuzz target check
// the encoder with it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace vellumark::fuzz {

/// Returns nothing for a text without its end marker "~>", with a character that is not a digit, or
/// with a group whose value exceeds 32 bits. A short group is filled up with the greatest digit and
/// gives one byte less than it has digits.
inline std::optional<std::vector<std::uint8_t>> DecodeBase85(std::string_view text) {
  if (!text.ends_with("~>")) return std::nullopt;
  text.remove_suffix(2);
  std::vector<std::uint8_t> bytes;
  while (!text.empty()) {
    if (text.front() == 'z') {
      bytes.insert(bytes.end(), 4, 0);
      text.remove_prefix(1);
      continue;
    }
    const std::size_t count = std::min<std::size_t>(5, text.size());
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 5; ++i) {
      const char digit = i < count ? text[i] : 'u';
      if (digit < '!' || digit > 'u') return std::nullopt;
      value = value * 85 + static_cast<std::uint64_t>(digit - '!');
    }
    if (count < 2 || value > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
    for (std::size_t i = 0; i + 1 < count; ++i) {
      bytes.push_back(static_cast<std::uint8_t>(value >> (24 - 8 * i) & 0xFFU));
    }
    text.remove_prefix(count);
  }
  return bytes;
}

}  // namespace vellumark::fuzz
