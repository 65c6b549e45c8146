// SPDX-License-Identifier: MIT
#include "layout/shown_characters.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

#include "layout/character_ranges.h"
#include "layout/glyphs/glyph_tables.h"
#include "platform/utf8.h"

namespace vellumark::layout {
namespace {

// Line ends, tabs and Unicode's spaces but the no-break space.
constexpr CharacterRange kBlanks[] = {{0x09, 0x0D},     {0x85, 0x85},     {0x1680, 0x1680},
                                      {0x2000, 0x200A}, {0x2028, 0x2029}, {0x202F, 0x202F},
                                      {0x205F, 0x205F}, {0x3000, 0x3000}};

// Invisible by nature: they direct how their neighbors are shown.
constexpr CharacterRange kInvisible[] = {{0x034F, 0x034F}, {0x061C, 0x061C}, {0x180B, 0x180F},
                                         {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x206F},
                                         {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}, {0xE0000, 0xE0FFF}};

// The letter that `base` and `mark` are together; 0 where the fonts have none.
char32_t Compose(char32_t base, char32_t mark) {
  const auto before = [](const ComposedLetter& row, std::pair<char32_t, char32_t> key) {
    return std::pair<char32_t, char32_t>(row.base, row.mark) < key;
  };
  const auto* const row = std::lower_bound(std::begin(kComposedLetters), std::end(kComposedLetters),
                                           std::pair(base, mark), before);
  const bool found = row != std::end(kComposedLetters) && row->base == base && row->mark == mark;
  return found ? row->letter : 0;
}

}  // namespace

char32_t ShownCharacters::Next() noexcept {
  char32_t character = Decode();
  if (character == '\r' && !AtEnd() && text_[position_] == '\n') ++position_;
  while (MarkMayFollow()) {
    const std::size_t before = position_;
    const char32_t letter = Compose(character, Decode());
    if (letter == 0) {
      position_ = before;
      break;
    }
    character = letter;
  }
  return character;
}

char32_t ShownCharacters::Decode() noexcept {
  const auto byte = [&](std::size_t ahead) {
    return static_cast<std::uint8_t>(text_[position_ + ahead]);
  };
  // Two bytes, of which most letters beyond ASCII are made.
  if (byte(0) >= 0xC2 && byte(0) <= 0xDF && position_ + 1 < text_.size() &&
      (byte(1) & 0xC0U) == 0x80) {
    const char32_t character = (byte(0) & 0x1FU) << 6 | (byte(1) & 0x3FU);
    position_ += 2;
    return character;
  }
  platform::Utf8Reader reader(text_.substr(position_));
  const char32_t character = reader.Next();
  position_ += reader.Position();
  return character;
}

std::string_view WithPlainBlanks(std::string_view utf8, const Font& font, std::string& storage) {
  if (CountPlain(utf8) == utf8.size()) return utf8;
  constexpr char32_t kNextLine = 0x85;
  constexpr char32_t kFigureSpace = 0x2007;
  constexpr char32_t kNarrowNoBreakSpace = 0x202F;
  const bool is_dingbat = font.number == FontNumberConstants::ZapfDingbats;
  storage.clear();
  platform::Utf8Reader reader(utf8);
  for (std::size_t begin = 0; begin < utf8.size();) {
    const char32_t character = reader.Next();
    const std::size_t end = reader.Position();
    const bool breaks = character != kFigureSpace && character != kNarrowNoBreakSpace &&
                        !(is_dingbat && character == kNextLine);
    if (breaks && AppearanceOf(character) == Appearance::Blank) {
      const bool second_half = character == '\n' && begin > 0 && utf8[begin - 1] == '\r';
      if (!second_half) storage.push_back(' ');
    } else {
      storage.append(utf8.substr(begin, end - begin));
    }
    begin = end;
  }
  return storage;
}

Appearance AppearanceOf(char32_t character) noexcept {
  if (IsIn(kBlanks, character)) return Appearance::Blank;
  return IsIn(kInvisible, character) ? Appearance::Nothing : Appearance::Glyph;
}

}  // namespace vellumark::layout
