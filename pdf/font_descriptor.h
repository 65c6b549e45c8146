// SPDX-License-Identifier: MIT
//
// FontDescriptor: what a font dictionary with widths of its own must say about a standard font.
//
// Readers know the fourteen fonts, but what they show in their place has other widths for some
// signs and letters beyond WinAnsi (layout/glyphs/latin.txt), or, in a browser, for all of them:
// lines then end elsewhere than they were measured to end. So Helvetica and Times come with their
// widths, for which the format wants a descriptor too:
//
//     /FirstChar 32 /LastChar 126                << /Type /FontDescriptor
//     /Widths [ 556 722 ... ]                    /FontName /Times-Roman /Flags 34
//     /FontDescriptor 9 0 R                      /FontBBox [ -168 -218 1000 898 ] ... >>
#pragma once

#include <array>
#include <string>

#include "layout/text_encoding.h"

namespace vellumark::pdf {

/// In 1/1000 em, the published numbers of Adobe's Core 14 metric files.
struct FontDescriptor {
  int flags = 0;  ///< 2 serif, 32 Latin letters, 64 italic
  std::array<int, 4> box{};
  double italic_angle = 0;  ///< degrees, counter-clockwise from upright
  int ascent = 0;
  int descent = 0;
  int cap_height = 0;
  int stem = 0;  ///< of vertical stems
};

/// `font` is the index of a face of Helvetica or Times into layout::kFontNames, 4 to 11.
[[nodiscard]] const FontDescriptor& DescriptorOf(int font) noexcept;

/// The array of widths of the codes `first` to `last`, brackets included, in lines of at most 80
/// characters.
[[nodiscard]] std::string WidthsArray(const layout::CodeWidths& widths, int first, int last);

}  // namespace vellumark::pdf
