// SPDX-License-Identifier: MIT
#include "layout/shaped_text.h"

#include <algorithm>

#include "layout/character_ranges.h"
#include "layout/encoded_text.h"
#include "layout/shown_characters.h"
#include "platform/utf8.h"

namespace vellumark::layout {
namespace {

constexpr char32_t kJoiner = 0x200D;

/// Whether a standard font shows a text: letters with their marks composed.
bool ShowsAll(const Font& font, std::string_view utf8) {
  for (ShownCharacters characters(utf8); !characters.AtEnd();) {
    if (!HasCharacter(characters.Next(), font)) return false;
  }
  return true;
}

bool IsInvisible(char32_t character) { return AppearanceOf(character) == Appearance::Nothing; }

// Scripts from right to left, and the signs that turn text around.
constexpr CharacterRange kRunsOrTurns[] = {{0x0590, 0x08FF},   {0x200E, 0x200F},  {0x202A, 0x202E},
                                           {0x2066, 0x2069},   {0xFB1D, 0xFDFF},  {0xFE70, 0xFEFC},
                                           {0x10800, 0x10FFF}, {0x1E800, 0x1EFFF}};

/// Rule L2 of the bidirectional algorithm: from the highest level down, what has at least it is
/// turned around.
void Reorder(std::vector<TextItem>& items) {
  std::uint8_t highest = 0;
  for (const TextItem& item : items) highest = std::max(highest, item.level);
  for (std::uint8_t level = highest; level > 0; --level) {
    for (auto from = items.begin(); from != items.end();) {
      const auto below = [level](const TextItem& item) { return item.level < level; };
      from = std::find_if_not(from, items.end(), below);
      const auto to = std::find_if(from, items.end(), below);
      std::reverse(from, to);
      from = to;
    }
  }
}

}  // namespace

bool MayRunRightToLeft(std::u32string_view text) noexcept {
  return std::any_of(text.begin(), text.end(), [](char32_t c) { return IsIn(kRunsOrTurns, c); });
}

void ShapedText::Decode(std::string_view utf8) {
  characters_.clear();
  offsets_.clear();
  platform::Utf8Reader reader(utf8);
  while (!reader.AtEnd()) {
    offsets_.push_back(reader.Position());
    characters_.push_back(reader.Next());
  }
  offsets_.push_back(utf8.size());
}

void ShapedText::Analyze(std::string_view utf8, const Font& font, const FontCollection& fonts) {
  std::string storage;
  text_ = WithPlainBlanks(utf8, font, storage);
  breaks_.clear();
  pieces_.clear();
  Decode(text_);
  FontEngine& engine = *fonts.Engine();
  base_level_ = 0;
  if (MayRunRightToLeft(characters_)) {
    base_level_ = engine.FindLevels(characters_, levels_);
  } else {
    levels_.assign(characters_.size(), 0);
  }
  engine.FindScripts(characters_, scripts_);
  FindFonts(font, fonts);
}

/// The font of a character and the marks behind it.
int ShapedText::FontOf(std::size_t begin, std::size_t end, const Font& font,
                       const FontCollection& fonts) const {
  const char32_t first = characters_[begin];
  const auto marks = std::u32string_view(characters_).substr(begin + 1, end - begin - 1);
  const auto has = [&](const FontFace& face) {
    return face.Has(first) || AppearanceOf(first) == Appearance::Blank;
  };
  const auto has_all = [&](const FontFace& face) {
    return has(face) && std::all_of(marks.begin(), marks.end(), [&](char32_t mark) {
             return IsInvisible(mark) || face.HasTogether(first, mark);
           });
  };
  const FontFace* const current = fonts.Face(font);
  // What a standard font shows of a text that runs from right to left are signs between its words;
  // they belong to the words' font.
  const bool standard = current == nullptr && levels_[begin] % 2 == 0;
  if (standard && ShowsAll(font, Utf8(begin, end))) return 0;
  if (current != nullptr && has_all(*current)) return static_cast<int>(font.number);
  const FontFace* const before =
      current == nullptr && begin > 0 ? fonts.Face(fonts_[begin - 1]) : nullptr;
  if (before != nullptr && HasCharacter(first, font) && has_all(*before)) return fonts_[begin - 1];
  for (const int number : fonts.Fallbacks()) {
    if (has_all(*fonts.Face(number))) return number;
  }
  if (current != nullptr && has(*current)) return static_cast<int>(font.number);
  if (current == nullptr && HasCharacter(first, font)) return 0;
  for (const int number : fonts.Fallbacks()) {
    if (has(*fonts.Face(number))) return number;
  }
  return current != nullptr ? kNoFont : 0;
}

void ShapedText::FindFonts(const Font& font, const FontCollection& fonts) {
  const FontEngine& engine = *fonts.Engine();
  const int first_font = fonts.Face(font) != nullptr ? static_cast<int>(font.number) : 0;
  fonts_.assign(characters_.size(), first_font);
  const auto belongs_before = [&](std::size_t i) {
    return IsInvisible(characters_[i]) || characters_[i - 1] == kJoiner ||
           engine.IsMark(characters_[i]);
  };
  // Invisible characters that begin the text belong to the letter behind them.
  const auto first_visible = std::find_if_not(characters_.begin(), characters_.end(), IsInvisible);
  std::size_t begin = 0;
  auto letter = static_cast<std::size_t>(first_visible - characters_.begin());
  while (letter < characters_.size()) {
    std::size_t end = letter + 1;
    while (end < characters_.size() && belongs_before(end)) ++end;
    std::fill(fonts_.begin() + static_cast<std::ptrdiff_t>(begin),
              fonts_.begin() + static_cast<std::ptrdiff_t>(end), FontOf(letter, end, font, fonts));
    begin = letter = end;
  }
}

void ShapedText::FindPieces(const FontCollection& fonts) {
  fonts.Engine()->FindBreaks(characters_, breaks_);
  pieces_.clear();
  for (std::size_t begin = 0, i = 0; i < characters_.size(); ++i) {
    if (breaks_[i] == 0) continue;
    TextPiece piece = {.begin = begin, .solid_end = i + 1, .end = i + 1};
    while (piece.solid_end > begin && characters_[piece.solid_end - 1] == ' ') --piece.solid_end;
    pieces_.push_back(piece);
    begin = i + 1;
  }
  if (pieces_.empty()) pieces_.emplace_back();
}

void ShapedText::ItemsOf(std::size_t begin, std::size_t end, std::vector<TextItem>& items) const {
  items.clear();
  // Rule L1: blanks at the end of a line have the direction of the whole.
  std::size_t solid_end = end;
  while (solid_end > begin && characters_[solid_end - 1] == ' ') --solid_end;
  for (std::size_t i = begin; i < end; ++i) {
    const std::uint8_t level = i < solid_end ? levels_[i] : base_level_;
    const bool goes_on = !items.empty() && items.back().level == level &&
                         items.back().font == fonts_[i] &&
                         (fonts_[i] <= 0 || items.back().script == scripts_[i]);
    if (goes_on) {
      items.back().end = i + 1;
    } else {
      items.push_back({i, i + 1, level, fonts_[i], scripts_[i]});
    }
  }
  if (MayRunRightToLeft(std::u32string_view(characters_).substr(begin, end - begin)) ||
      base_level_ != 0) {
    Reorder(items);
  }
}

}  // namespace vellumark::layout
