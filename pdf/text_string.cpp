// SPDX-License-Identifier: MIT
#include "pdf/text_string.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/utf8.h"

namespace vellumark::pdf {
namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

constexpr char32_t kEscape = 0x1B;

bool IsPrintableAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// One unit of UTF-16, the high byte first.
char* WriteUnit(char32_t unit, char* to) {
  const std::array<char, 2> bytes = {static_cast<char>(unit >> 8), static_cast<char>(unit)};
  return EscapedString::WriteInside({bytes.data(), bytes.size()}, to);
}

char* WriteUtf16(char32_t character, char* to) {
  if (character < 0x10000) return WriteUnit(character, to);
  const char32_t rest = character - 0x10000;
  to = WriteUnit(0xD800U + (rest >> 10), to);
  return WriteUnit(0xDC00U + (rest & 0x3FFU), to);
}

constexpr bool IsHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

// The characters of RFC 3986, reserved and unreserved, but for "%".
constexpr auto kMayStand = [] {
  std::array<bool, 256> may_stand{};
  for (std::size_t c = '0'; c <= '9'; ++c) may_stand[c] = true;
  for (std::size_t c = 'A'; c <= 'Z'; ++c) may_stand[c] = true;
  for (std::size_t c = 'a'; c <= 'z'; ++c) may_stand[c] = true;
  for (const char c : std::string_view("-._~:/?#[]@!$&'()*+,;=")) {
    may_stand[static_cast<std::uint8_t>(c)] = true;
  }
  return may_stand;
}();

}  // namespace

char* TextString::Write(char* to) const noexcept {
  if (IsPrintableAscii(utf8)) return EscapedString{utf8}.Write(to);
  *to++ = '(';
  *to++ = '\xFE';
  *to++ = '\xFF';
  for (platform::Utf8Reader reader(utf8); !reader.AtEnd();) {
    const char32_t character = reader.Next();
    to = WriteUtf16(character == kEscape ? platform::kReplacementCharacter : character, to);
  }
  *to++ = ')';
  return to;
}

char* UriString::Write(char* to) const noexcept {
  *to++ = '(';
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const char c = utf8[i];
    const auto byte = static_cast<std::uint8_t>(c);
    const bool encoded =
        c == '%' && i + 2 < utf8.size() && IsHexDigit(utf8[i + 1]) && IsHexDigit(utf8[i + 2]);
    if (encoded || kMayStand[byte]) {
      if (c == '(' || c == ')') *to++ = '\\';
      *to++ = c;
    } else {
      *to++ = '%';
      *to++ = kHexDigits[byte / 16];
      *to++ = kHexDigits[byte % 16];
    }
  }
  *to++ = ')';
  return to;
}

}  // namespace vellumark::pdf
