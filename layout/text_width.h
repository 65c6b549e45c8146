// SPDX-License-Identifier: MIT
//
// FontWidths: how wide a text is in one of the fourteen standard fonts.
//
// The library places text itself and therefore knows the advance width of every glyph. The widths
// are in 1/1000 em, by the code that a glyph has in the font's own encoding:
//
//     const FontWidths widths(platform);
//     widths.GetTextWidth("Hello", font);          // whole points at font.height
//     FontWidths::InPoints(font.height, widths.Sum("Hello", font));   // the same in two steps
//
// Text is bytes of the code page, and a byte is looked up as it stands, above 127 too: that is the
// glyph a reader shows, because the writers emit the same byte and the fonts keep their own
// encoding. So byte 233 ("é" of the code page) measures as the glyph at 233 of the standard
// encoding. No kerning, no letter spacing.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <vellumark/platform.h>

#include "layout/font.h"
#include "layout/points.h"
#include "layout/text_encoding.h"

namespace vellumark::layout {

class FontWidths {
 public:
  /// Takes the ten width resources of the platform. A resource that is missing raises run-time
  /// error 9.
  explicit FontWidths(Platform& platform);

  /// Sum of the advance widths in 1/1000 em. A family or style that does not exist has no glyphs
  /// and adds nothing; Courier is 600 for every code. Raises run-time error 6 beyond 32 bits.
  [[nodiscard]] std::int32_t Sum(std::string_view text, const Font& font) const;

  /// Width at a font size of `height` points, rounded to whole points, ties to even. Raises
  /// run-time error 6 beyond 16 bits.
  [[nodiscard]] static Points InPoints(std::uint8_t height, std::int32_t sum);

  /// The largest sum that InPoints rounds to at most `width`: to compare many sums with one width.
  [[nodiscard]] static std::int32_t LargestSum(std::uint8_t height, Points width);

  [[nodiscard]] Points GetTextWidth(std::string_view text, const Font& font) const {
    return InPoints(font.height, Sum(text, font));
  }

  /// The widths of all codes; zeros for a family or style that does not exist.
  [[nodiscard]] const CodeWidths& Codes(const Font& font) const noexcept;

 private:
  std::array<CodeWidths, 10> tables_;  // resources 101 to 110
};

}  // namespace vellumark::layout
