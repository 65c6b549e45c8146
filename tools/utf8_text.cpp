// SPDX-License-Identifier: MIT
#include "tools/utf8_text.h"

#include <algorithm>

namespace vellumark::tools {
namespace {

unsigned char Byte(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

/// The number of bytes of a character with this first byte; 0 if no character begins with it.
std::size_t LengthFrom(unsigned char first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

bool IsContinuation(unsigned char byte) { return (byte & 0xC0U) == 0x80; }

/// Whether the second byte makes a character that is not overlong, a surrogate or too large.
bool SecondByteFits(unsigned char first, unsigned char second) {
  switch (first) {
    case 0xE0: return second >= 0xA0;
    case 0xED: return second < 0xA0;
    case 0xF0: return second >= 0x90;
    case 0xF4: return second < 0x90;
    default: return true;
  }
}

}  // namespace

std::optional<std::size_t> FirstInvalidByte(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t length = LengthFrom(Byte(bytes, at));
    if (length == 0 || length > bytes.size() - at) return at;
    for (std::size_t i = 1; i < length; ++i) {
      if (!IsContinuation(Byte(bytes, at + i))) return at;
    }
    if (length > 1 && !SecondByteFits(Byte(bytes, at), Byte(bytes, at + 1))) return at;
    at += length;
  }
  return std::nullopt;
}

char32_t NextCharacter(std::string_view text, std::size_t& at) {
  const unsigned char first = Byte(text, at);
  const std::size_t length = std::max<std::size_t>(LengthFrom(first), 1);
  char32_t character = length == 1 ? first : first & (0x7FU >> length);
  for (std::size_t i = 1; i < length && at + i < text.size(); ++i) {
    character = (character << 6U) | (Byte(text, at + i) & 0x3FU);
  }
  at = std::min(at + length, text.size());
  return character;
}

void SkipMarkedCharacter(std::string_view text, std::size_t& at) {
  static_cast<void>(NextCharacter(text, at));
  if (at == text.size() || Byte(text, at) < 0x80) return;  // most texts have no marks
  std::size_t behind = at;
  const char32_t mark = NextCharacter(text, behind);
  if (mark >= 0x300 && mark < 0x370) at = behind;
}

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return !IsContinuation(static_cast<unsigned char>(c));
  }));
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0U | (character >> 6U));
    append(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    append(0xE0U | (character >> 12U));
    append(0x80U | ((character >> 6U) & 0x3FU));
    append(0x80U | (character & 0x3FU));
  } else {
    append(0xF0U | (character >> 18U));
    append(0x80U | ((character >> 12U) & 0x3FU));
    append(0x80U | ((character >> 6U) & 0x3FU));
    append(0x80U | (character & 0x3FU));
  }
}

}  // namespace vellumark::tools
