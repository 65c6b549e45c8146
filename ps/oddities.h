// SPDX-License-Identifier: MIT
//
// What this writer does otherwise than a reader of the PostScript reference and of the document
// structuring conventions (DSC 3.0) would expect.
//
// Each is a decision of this house: files written over the years look like this, hosts compare them
// byte for byte, and interpreters cope. The writer asks here wherever it would otherwise do what
// the reference suggests; an output without the oddities changes this file. Each has a test that
// names it (tests/ps/).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "document/line_buffer.h"
#include "document/pasted_string.h"
#include "document/state.h"

namespace vellumark::ps::oddities {

/// A page comment carries the number of pages first and the page's own number second, where DSC
/// has the page's label and its number. Viewers show the count as every page's label.
[[nodiscard]] inline std::string PageComment(std::size_t pages, std::size_t page) {
  return "%%Page: " + std::to_string(pages) + ' ' + std::to_string(page);
}

/// The page comment follows the page's background instead of opening the page: a program that cuts
/// the file at the comments gives each page's background to the page before it. Interpreters take
/// no notice of comments.
inline constexpr bool kPageCommentFollowsBackground = true;

/// The rotation for Landscape and Rotated stands once, in the header. `showpage` gives the next
/// page a fresh coordinate system, so only the first page is turned and the later ones stand
/// upright.
///
/// Both together turn by 180 degrees and move by height first, then width, where the page's width
/// belongs to x: on paper that is not square the page is shifted by the difference of the two.
inline void TurnFirstPage(const document::State& state, document::LineBuffer& lines) {
  const bool landscape = state.orientation == OrientationConstants::Landscape;
  if (landscape != state.rotated) {
    lines.Append("90 rotate");
    lines.Append("0 -", state.page.height, " translate");
  } else if (landscape) {
    lines.Append("180 rotate");
    lines.Append('-', state.page.height, " -", state.page.width, " translate");
  }
}

/// Text is pasted between the parentheses as the host gave it, and properties behind their
/// comments. A host escapes "(", ")" and "\" itself, and may write octal codes.
[[nodiscard]] inline document::PastedString UnescapedText(std::string_view text) { return {text}; }

/// A line's path is closed: it is stroked there and back.
inline void EndLinePath(document::LineBuffer& lines) { lines.Append("closepath"); }

/// A solid line writes no dash: a dash set earlier on the page stays in force.
inline void WriteDash(const document::State& state, document::LineBuffer& lines) {
  if (!state.dash.bytes.empty()) lines.Append('[', state.dash.bytes, "] 0 setdash");
}

/// A Create whose file cannot be created forgets the file that was open before, which stays empty.
inline constexpr bool kKeepsFileWhenCreateFails = false;

/// Every picture without a palette is said to have three components of 8 bits, also one whose
/// samples have two or four bytes a pixel: at 16 bits the samples end early and part of the picture
/// is missing, at 32 bits it is torn and its colours are wrong (docs/pictures.md).
inline constexpr int BitsPerComponent(int bits_per_pixel) noexcept {
  return bits_per_pixel > 8 ? 8 : bits_per_pixel;
}

}  // namespace vellumark::ps::oddities
