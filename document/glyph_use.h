// SPDX-License-Identifier: MIT
//
// GlyphUse: the glyphs of loaded fonts that a document shows. A glyph has a code in the document,
// by the order of its first use, so that texts can be written before all glyphs are known; at the
// end a font of these glyphs is made.
//
//     GlyphUse use(fonts);
//     GlyphUse::Font& font = use.Of(101);
//     const std::uint16_t code = use.CodeOf(font, glyph.id);         // 1, 2, ...
//     if (!use.Means(font, code, "fi")) ...                        // it stands for another text
//     const auto program = font.face->Subset(font.glyphs, EmbeddedName(font));
//
// Code 0 is glyph 0, which is shown for characters that the font lacks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "layout/font_collection.h"

namespace vellumark::document {

class GlyphUse {
 public:
  struct Font {
    int number = 0;
    const layout::FontFace* face = nullptr;
    std::vector<std::uint16_t> glyphs;   ///< by code
    std::vector<std::int32_t> advances;  ///< likewise, 1/1000 em
    std::vector<std::string> texts;      ///< likewise, in UTF-8; empty where nothing is known
    std::vector<std::uint32_t> shorts;   ///< likewise, those of at most four bytes in one number
    std::vector<std::uint16_t> code_of;  ///< by glyph; 0 where there is none yet
  };

  explicit GlyphUse(const layout::FontCollection& fonts) : fonts_(fonts) {}

  /// Forgets all.
  void Clear() noexcept;

  /// The use of a loaded font. Fonts have an order by their first use.
  Font& Of(int number) {
    const auto index = static_cast<std::size_t>(number - layout::FontCollection::kFirstNumber);
    if (index < by_number_.size() && by_number_[index] != nullptr) return *by_number_[index];
    return Begin(number);
  }

  /// The code of a glyph; it gets the next one if it has none.
  std::uint16_t CodeOf(Font& font, std::uint16_t glyph) {
    if (glyph == 0 || font.code_of[glyph] != 0) return font.code_of[glyph];
    return Add(font, glyph);
  }

  /// Whether the code alone gives back `text` to who searches or copies: it does from the first
  /// text on that it stood for. Characters that are invisible by nature count only if they join.
  bool Means(Font& font, std::uint16_t code, std::string_view text) {
    const std::uint32_t number = InOneNumber(text);  // as nearly always
    return (number != 0 && font.shorts[code] == number) || Learn(font, code, text);
  }

  /// A glyph of several that show `text` together is one of its characters by itself, perhaps: then
  /// the code gives that back to readers that do not know of spans.
  void LearnPart(Font& font, std::uint16_t code, std::string_view text);

  /// A place to go back to.
  [[nodiscard]] std::size_t Here() const noexcept { return log_.size(); }
  void RollBack(std::size_t place) noexcept;

  /// The fonts that have glyphs in use, by their numbers.
  [[nodiscard]] std::vector<Font*> Used() const;

 private:
  struct Step {
    Font* font = nullptr;
    std::uint16_t code = 0;
    bool text = false;  // that it got its text, and not that it began
  };

  /// 0 for a text that is longer.
  static std::uint32_t InOneNumber(std::string_view text) noexcept {
    std::uint32_t number = 0;
    if (text.size() > sizeof(number)) return 0;
    for (const char c : text) number = number << 8 | static_cast<std::uint8_t>(c);
    return number;
  }

  bool Learn(Font& font, std::uint16_t code, std::string_view text);
  Font& Begin(int number);
  std::uint16_t Add(Font& font, std::uint16_t glyph);

  const layout::FontCollection& fonts_;
  std::vector<std::unique_ptr<Font>> by_number_;  // from the first number on
  std::vector<Step> log_;
};

/// "ABCDEF+Name": six letters that tell fonts of different glyphs apart.
[[nodiscard]] std::string EmbeddedName(const GlyphUse::Font& font);

/// The number of each code's glyph in `program`, as two bytes, the high one first.
[[nodiscard]] std::vector<std::uint8_t> GlyphNumbers(const layout::FontProgram& program);

}  // namespace vellumark::document
