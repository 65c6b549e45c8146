// SPDX-License-Identifier: MIT
#include "platform/windows_1252.h"

#include <algorithm>
#include <array>

#include "platform/utf8.h"

namespace vellumark::platform {
namespace {

// The characters at 0x80 to 0x9F; 0 if Windows-1252 has none.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

}  // namespace

int Windows1252Byte(char32_t character) noexcept {
  if (character <= 0xFF) return static_cast<int>(character);
  if (character > 0xFFFF) return -1;
  const auto* const found =
      std::find(kHighControls.begin(), kHighControls.end(), static_cast<char16_t>(character));
  return found == kHighControls.end() ? -1 : 0x80 + static_cast<int>(found - kHighControls.begin());
}

std::string_view ToWindows1252(std::string_view utf8, std::string& storage) {
  if (IsAscii(utf8)) return utf8;
  storage.clear();
  for (Utf8Reader reader(utf8); !reader.AtEnd();) {
    const int byte = Windows1252Byte(reader.Next());
    storage.push_back(byte < 0 ? '?' : static_cast<char>(byte));
  }
  return storage;
}

}  // namespace vellumark::platform
