// SPDX-License-Identifier: MIT
//
// TextEncoding: the codes by which the fourteen standard fonts are given their glyphs, without a
// font being embedded.
//
// A code is one byte, so the 324 characters of the Latin fonts need two encodings. Symbol and
// ZapfDingbats have one each, their built-in one.
//
//     encoding      what a code is
//     WinAnsi       Windows-1252, the encoding of that name in PDF
//     Extended      ASCII in place, and all characters that WinAnsi lacks
//                   (layout/glyphs/latin.txt)
//     Symbol        the font's own codes
//     ZapfDingbats  the font's own codes
//
//     GlyphsOf(TextEncoding::Extended)[0xB9]               // U+0105, "aogonek"
//     WidthsOf(font, TextEncoding::Extended)[0xB9]         // its width in 1/1000 em
//
// A writer declares an encoding with GlyphsOf; encoded_text.h puts a text into one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

#include <vellumark/run_time_error.h>

#include "layout/font.h"
#include "layout/glyph_rows.h"

namespace vellumark::layout {

enum class TextEncoding : std::uint8_t { WinAnsi, Extended, Symbol, ZapfDingbats };

/// The glyph at a code: its Unicode character and its name in the font; none where the character
/// is 0.
struct CodedGlyph {
  char16_t character = 0;
  std::string_view name;
};

using CodedGlyphs = std::array<CodedGlyph, 256>;
using CodeWidths = std::array<std::uint16_t, 256>;

/// The faces of the Latin families that differ in width: those of glyphs/latin.txt, and Courier.
inline constexpr std::size_t kLatinFaces = 7;
inline constexpr std::size_t kCourierFace = 6;

/// The face of a font, or kLatinFaces if it is of no Latin family or has no such style.
[[nodiscard]] std::size_t LatinFaceOf(const Font& font) noexcept;

/// What stands at each code.
[[nodiscard]] const CodedGlyphs& GlyphsOf(TextEncoding encoding) noexcept;

/// The advance widths in 1/1000 em, by code; 0 where the code has no glyph, and everywhere for a
/// font of no family or face and for an encoding that is not the font's.
[[nodiscard]] const CodeWidths& WidthsOf(const Font& font, TextEncoding encoding) noexcept;

/// The sum of the widths of `codes`.
inline std::int64_t SumOfWidths(std::string_view codes, const CodeWidths& widths) noexcept {
  std::uint64_t even = 0;
  std::uint64_t odd = 0;
  std::size_t i = 0;
  // Eight codes in one load: a third of the time that a load for each takes.
  for (; i + 8 <= codes.size(); i += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, codes.data() + i, 8);
    const auto width = [&](int shift) { return std::uint32_t{widths[eight >> shift & 0xFFU]}; };
    even += width(0) + width(16) + width(32) + width(48);
    odd += width(8) + width(24) + width(40) + width(56);
  }
  for (; i < codes.size(); ++i) even += widths[static_cast<std::uint8_t>(codes[i])];
  return static_cast<std::int64_t>(even + odd);
}

/// A sum of widths as measuring returns it. Raises run-time error 6 beyond 32 bits.
inline std::int32_t CheckedWidth(std::int64_t sum) {
  if (sum > std::numeric_limits<std::int32_t>::max()) throw RunTimeError(RunTimeError::Overflow);
  return static_cast<std::int32_t>(sum);
}

}  // namespace vellumark::layout
