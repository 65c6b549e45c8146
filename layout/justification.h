// SPDX-License-Identifier: MIT
//
// JustifyText: where the words of one line start so that the line fills its width to the point.
//
// The caller has cut the line from a paragraph; JustifyText splits it at every single blank and
// hands the spare width out between the words: the same whole number of points to each gap, then
// one point more to the first gaps until nothing is left.
//
//     JustifiedLine line;                       // kept by the caller, its storage is used again
//     JustifyText("aaa bbb cc", 100, setter, font, line);
//     // line.words: "aaa ", "bbb ", "cc"       positions: 0, 33, 75 for widths 20, 30, 25
#pragma once

#include <string_view>
#include <vector>

#include "layout/font.h"
#include "layout/points.h"
#include "layout/text_setter.h"

namespace vellumark::layout {

struct JustifiedLine {
  /// The words, views of the line that was passed; each but the last ends with its blank. Blanks in
  /// a row make empty words, which are kept.
  std::vector<std::string_view> words;
  /// For each word the points from the line's start to its own; one unused entry, 0, at the end.
  std::vector<Points> positions;
};

/// Fills `line` and returns true. A line of one word is never stretched: like any run-time error
/// (an overflow of a position) its missing gap stops the work at once; the result is false, and
/// `line` keeps all words and the positions found so far, the others being 0. Words that are wider
/// than `width` together keep their natural positions, and the line overflows.
bool JustifyText(std::string_view text, Points width, const TextSetter& setter, const Font& font,
                 JustifiedLine& line);

}  // namespace vellumark::layout
