// SPDX-License-Identifier: MIT
//
// TextComposer: puts an EncodedText together out of runs of glyphs and of codes, from left to
// right.
//
//     TextComposer composer(encoded);
//     composer.BeginGlyphs(101, "a word");
//     composer.AddGlyphs(word.glyphs, 0);            // whose text begins at byte 0 of "a word"
//     composer.EndGlyphs();
//     composer.AddCodes("Latin", times);
//     composer.Finish();
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "layout/encoded_text.h"

namespace vellumark::layout {

class TextComposer {
 public:
  /// Forgets what `text` was.
  explicit TextComposer(EncodedText& text);

  /// A run of glyphs of a loaded font, which show `utf8`.
  void BeginGlyphs(int font, std::string_view utf8);
  void AddGlyphs(std::span<const PlacedGlyph> glyphs, std::size_t text_begin);
  /// Free space behind the glyph that was added last.
  void AddGlyphGap(std::int32_t gap);
  void EndGlyphs();

  /// A text in a standard font; the characters that it lacks are lost. `gap` stands behind it.
  void AddCodes(std::string_view utf8, const Font& font, std::int32_t gap);

  void AddLost(char32_t character) { text_.lost_.push_back(character); }

  /// Raises run-time error 6 for a width beyond 32 bits.
  void Finish();

 private:
  EncodedText& text_;
  std::size_t first_glyph_ = 0;
  std::size_t glyph_text_ = 0;
  int font_ = 0;
};

}  // namespace vellumark::layout
