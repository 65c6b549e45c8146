// SPDX-License-Identifier: MIT
//
// ShapingSetter: measures and encodes the texts of a document that has loaded fonts.
//
//     ShapingSetter setter(fonts);
//     setter.Encode("Привет", font, encoded);                    // runs of glyphs
//
// A paragraph is analyzed once, and then cut into lines:
//
//     setter.Prepare(text, font, paragraph);
//     for (const TextPiece& piece : paragraph.Pieces()) ...      // does the line have room for it?
//     setter.EncodeLine(paragraph, {first, end, spare}, font, encoded);
//
// A text that the current font, a standard one, shows alone is encoded as in a document without
// loaded fonts. Words are shaped one by one, and kept: there is no kerning across a blank. What no
// font has is shown as "?" of the current font, or as its sign for nothing, and is lost.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "layout/font_collection.h"
#include "layout/shaped_text.h"
#include "layout/text_setter.h"
#include "layout/word_cache.h"

namespace vellumark::layout {

/// Some pieces of a paragraph, and the width that is to be spread over their gaps: the blanks, or
/// if there are none, the places where the line could be broken.
struct LineOfPieces {
  std::size_t first = 0;
  std::size_t end = 0;
  std::int64_t spare = 0;  ///< 1/1000 em
};

class ShapingSetter final : public TextSetter {
 public:
  /// `fonts` must outlive the setter.
  explicit ShapingSetter(const FontCollection& fonts) : fonts_(fonts) {}

  [[nodiscard]] std::int32_t Measure(std::string_view text, const Font& font) const override;
  [[nodiscard]] const CodeWidths* ByteWidths(std::string_view text,
                                             const Font& font) const override;
  void Encode(std::string_view text, const Font& font, EncodedText& encoded) const override;

  /// Whether a text is shown by loaded fonts, and not by the current one, a standard font, alone.
  [[nodiscard]] bool Shapes(std::string_view text, const Font& font) const;

  /// Analyzes a paragraph and measures its pieces.
  void Prepare(std::string_view text, const Font& font, ShapedText& paragraph) const;

  /// A line of it, without the blanks behind its last piece.
  void EncodeLine(const ShapedText& paragraph, const LineOfPieces& line, const Font& font,
                  EncodedText& encoded) const;

 private:
  class LineEncoder;

  bool MeasurePlain(std::string_view text, const Font& font, std::int64_t& width) const;
  bool EncodePlain(std::string_view text, const Font& font, EncodedText& encoded) const;
  template <class Use>
  bool ForEachPlainWord(std::string_view text, const Font& font, const Use& use) const;
  [[nodiscard]] std::int64_t MeasureRange(const ShapedText& text, std::size_t begin,
                                          std::size_t end, const Font& font) const;

  /// What is kept from text to text.
  struct Kept {
    WordCache words;
    ShapedText text;
    std::vector<TextItem> items;
    std::vector<std::size_t> cuts;
  };

  const FontCollection& fonts_;
  std::unique_ptr<Kept> kept_ = std::make_unique<Kept>();
};

}  // namespace vellumark::layout
