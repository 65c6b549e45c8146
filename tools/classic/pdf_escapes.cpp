// SPDX-License-Identifier: MIT
#include "tools/classic/pdf_escapes.h"

#include <algorithm>
#include <cctype>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

void AppendOctal(std::string& text, unsigned byte) {
  text += '\\';
  for (const unsigned shift : {6U, 3U, 0U}) text += static_cast<char>('0' + ((byte >> shift) & 7U));
}

void AppendUtf16Unit(std::string& text, char32_t unit) {
  AppendOctal(text, (unit >> 8U) & 0xFFU);
  AppendOctal(text, unit & 0xFFU);
}

std::string EscapeUnicode(std::string_view text) {
  std::string escaped;
  AppendUtf16Unit(escaped, 0xFEFF);
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    if (character < 0x10000) {
      AppendUtf16Unit(escaped, character);
    } else {
      AppendUtf16Unit(escaped, 0xD800 + ((character - 0x10000) >> 10U));
      AppendUtf16Unit(escaped, 0xDC00 + ((character - 0x10000) & 0x3FFU));
    }
  }
  return escaped;
}

bool IsHexadecimal(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

/// Whether the "%" at `at` begins a percent-encoded byte.
bool IsEncoded(std::string_view address, std::size_t at) {
  return at + 2 < address.size() && IsHexadecimal(address[at + 1]) &&
         IsHexadecimal(address[at + 2]);
}

}  // namespace

std::string EscapePdfPageText(std::string_view codes) {
  std::string escaped;
  escaped.reserve(codes.size());
  for (const char code : codes) {
    if (code == '\\') escaped += '\\';
    AppendUtf8(escaped, static_cast<unsigned char>(code));
  }
  return escaped;
}

std::string EscapePdfProperty(std::string_view text) {
  if (!std::all_of(text.begin(), text.end(), IsAscii)) return EscapeUnicode(text);
  std::string escaped;
  for (const char c : text) {
    if (c < 0x20 || c == 0x7F) {
      AppendOctal(escaped, static_cast<unsigned char>(c));
      continue;
    }
    if (c == '(' || c == ')' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string EscapePdfLink(std::string_view address) {
  constexpr std::string_view kUnsafe = " \"'()<>\\^`{|}";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string escaped;
  for (std::size_t i = 0; i < address.size(); ++i) {
    const char c = address[i];
    const bool plain = c > 0x20 && c < 0x7F && kUnsafe.find(c) == std::string_view::npos;
    if (plain && (c != '%' || IsEncoded(address, i))) {
      escaped += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    escaped += '%';
    escaped += kDigits[byte >> 4U];
    escaped += kDigits[byte & 0xFU];
  }
  return escaped;
}

}  // namespace vellumark::tools
