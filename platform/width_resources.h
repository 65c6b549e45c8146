// SPDX-License-Identifier: MIT
//
// WidthResource: the glyph widths of the standard fonts, as the library carries them.
//
// One resource for each font with proportional widths; Courier needs none, all its glyphs are 600:
//
//     101  Helvetica                105  Times-Roman         109  Symbol
//     102  Helvetica-Bold           106  Times-Bold          110  ZapfDingbats
//     103  Helvetica-Oblique        107  Times-Italic
//     104  Helvetica-BoldOblique    108  Times-BoldItalic
//
// A resource is 512 bytes: for each character code 0..255 of the font's built-in encoding one
// unsigned 16-bit advance width in 1/1000 em, the low byte first:
//
//     const auto bytes = WidthResource(101);
//     const int width_of_a = bytes[2 * 'A'] | (bytes[2 * 'A' + 1] << 8);   // 667
//
// The bytes are constants of the library: they live as long as the program, and any thread may
// read them. They are made from the text files in layout/widths/, which record each number and each
// departure from the fonts' published metrics.
#pragma once

#include <cstdint>
#include <span>

namespace vellumark::platform {

/// The 512 bytes of resource 101..110; empty for any other number.
[[nodiscard]] std::span<const std::uint8_t> WidthResource(int number) noexcept;

}  // namespace vellumark::platform
