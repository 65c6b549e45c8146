// SPDX-License-Identifier: MIT
#include "ps/comment_text.h"

#include <algorithm>
#include <iterator>

#include "layout/glyphs/glyph_tables.h"
#include "layout/shown_characters.h"

namespace vellumark::ps {
namespace {

constexpr std::size_t kGreatestSize = 200;

// ASCII for characters that are not a letter with a mark.
struct Likeness {
  char16_t first;
  char16_t last;
  std::string_view ascii;
};

constexpr Likeness kLikenesses[] = {
    {0x0110, 0x0110, "D"},  {0x0111, 0x0111, "d"},   {0x0131, 0x0131, "i"},
    {0x0141, 0x0141, "L"},  {0x0142, 0x0142, "l"},   {0x0152, 0x0152, "OE"},
    {0x0153, 0x0153, "oe"}, {0x2010, 0x2015, "-"},   {0x2018, 0x201B, "'"},
    {0x201C, 0x201F, "\""}, {0x2022, 0x2022, "*"},   {0x2026, 0x2026, "..."},
    {0x2039, 0x203A, "'"},  {0x20AC, 0x20AC, "EUR"}, {0x2122, 0x2122, "TM"},
    {0x2212, 0x2212, "-"},  {0xFB01, 0xFB01, "fi"},  {0xFB02, 0xFB02, "fl"}};

std::string LikenessOf(char32_t character) {
  for (const Likeness& one : kLikenesses) {
    if (character >= one.first && character <= one.last) return std::string(one.ascii);
  }
  const auto* const letter = std::find_if(
      std::begin(layout::kComposedLetters), std::end(layout::kComposedLetters),
      [character](const layout::ComposedLetter& row) { return row.letter == character; });
  const bool found = letter != std::end(layout::kComposedLetters) && letter->base <= '~';
  return {found ? static_cast<char>(letter->base) : '?'};
}

bool IsControl(char32_t character) {
  return character < ' ' || (character >= 0x7F && character < 0xA0);
}

std::string Octal(char32_t byte) {
  return {'\\', static_cast<char>('0' + byte / 64), static_cast<char>('0' + byte / 8 % 8),
          static_cast<char>('0' + byte % 8)};
}

// What stands for a character, without escapes; octal for Latin-1.
std::string Written(char32_t character) {
  if (IsControl(character)) return " ";
  if (character <= '~') return {static_cast<char>(character)};
  if (character <= 0xFF) return Octal(character);
  switch (layout::AppearanceOf(character)) {
    case layout::Appearance::Blank: return " ";
    case layout::Appearance::Nothing: return "";
    case layout::Appearance::Glyph: break;
  }
  return LikenessOf(character);
}

// Whether a reader of the bare text would take something else.
bool NeedsParentheses(std::string_view text) {
  return text.empty() || text.front() == '(' || text.front() == ' ' || text.back() == ' ' ||
         text.find("  ") != std::string_view::npos;
}

}  // namespace

std::string CommentText(std::string_view utf8) {
  std::string bare;
  std::string escaped = "(";
  bool octal = false;
  for (layout::ShownCharacters characters(utf8); !characters.AtEnd();) {
    const char32_t character = characters.Next();
    const std::string written = Written(character);
    const bool escape = character == '(' || character == ')' || character == '\\';
    if (escaped.size() + (escape ? 1 : 0) + written.size() + 1 > kGreatestSize) break;
    if (escape) escaped += '\\';
    escaped += written;
    bare += written;
    octal |= character >= 0xA0 && character <= 0xFF;
  }
  return octal || NeedsParentheses(bare) ? escaped + ')' : bare;
}

}  // namespace vellumark::ps
