// SPDX-License-Identifier: MIT
//
// MakeWords: from spans of text to the words that lines are composed of.
//
// A word is the text between two blanks. Its look may change within it, so it consists of pieces
// with one face and one link each.
//
//     const std::vector<Word> words = MakeWords(inline_text, faces, measure);
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/inline_text.h"
#include "tools/text_measure.h"

namespace vellumark::tools {

struct Piece {
  Face face;
  std::string text;        ///< UTF-8
  std::size_t link = 0;    ///< see Span
  bool struck = false;     ///< with a line through it
  std::int64_t width = 0;  ///< in 1/1000 point
};

struct Word {
  std::vector<Piece> pieces;
  std::int64_t width = 0;         ///< in 1/1000 point, without the blank behind it
  bool ends_line = false;         ///< the line ends behind the word
  bool against_the_line = false;  ///< it runs from left to right in a line from right to left
};

/// The faces that the spans of a block are set in.
struct BlockFaces {
  Face text;
  Face code;  ///< its style is combined with that of the span
};

[[nodiscard]] std::vector<Word> MakeWords(const InlineText& text, const BlockFaces& faces,
                                          TextMeasure& measure);

}  // namespace vellumark::tools
