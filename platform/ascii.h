// SPDX-License-Identifier: MIT
//
// IsAscii: whether a text is plain ASCII, which is the same in UTF-8 and in every code page here.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vellumark::platform {

[[nodiscard]] inline bool IsAscii(std::string_view text) noexcept {
  const char* p = text.data();
  std::size_t left = text.size();
  for (; left >= 8; left -= 8, p += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, p, 8);
    if ((eight & 0x8080808080808080U) != 0) return false;
  }
  return std::all_of(p, p + left, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace vellumark::platform
