// SPDX-License-Identifier: MIT
//
// What a line of each table in layout/glyphs becomes. The header glyph_tables.h, made from them
// when the library is built, has the rows; text_encoding.h and encoded_text.h are the way to them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vellumark::layout {

/// The width of every character in Courier.
inline constexpr std::uint16_t kCourierWidth = 600;

/// A Unicode character of the Latin fonts; the rows go by rising code point.
struct LatinGlyph {
  char16_t character = 0;
  std::uint8_t win_ansi = 0;  ///< code in WinAnsi; 0 where it is not there
  std::uint8_t extended = 0;  ///< code in Extended; 0 where it is not there
  /// Helvetica, Helvetica-Bold, Times-Roman, -Bold, -Italic, -BoldItalic; 1/1000 em
  std::array<std::uint16_t, 6> widths{};
  std::string_view name;

  /// In one of these faces, or in Courier, which is the face behind them.
  [[nodiscard]] constexpr std::uint16_t Width(std::size_t face) const noexcept {
    return face < widths.size() ? widths[face] : kCourierWidth;
  }
};

/// A code of Symbol or ZapfDingbats; the rows go by rising code.
struct BuiltInGlyph {
  char16_t character = 0;
  std::uint8_t code = 0;
  std::uint16_t width = 0;  ///< 1/1000 em
  std::string_view name;
};

/// A letter that can be written as two characters; the rows go by rising base, then mark.
struct ComposedLetter {
  char16_t base = 0;
  char16_t mark = 0;
  char16_t letter = 0;
};

}  // namespace vellumark::layout
