// SPDX-License-Identifier: MIT
//
// MakeWords: from spans of text to the words that lines are composed of.
//
// A word is the text between two blanks. Its look may change within it, so it consists of pieces
// with one face and one link each.
//
//     const std::vector<Word> words = MakeWords(inline_text, faces, measure, missing);
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "tools/glyph_codes.h"
#include "tools/inline_text.h"
#include "tools/text_measure.h"

namespace vellumark::tools {

struct Piece {
  Face face;
  GlyphRun glyphs;
  std::size_t link = 0;    ///< see Span
  bool struck = false;     ///< with a line through it
  std::int64_t width = 0;  ///< in 1/1000 point
};

struct Word {
  std::vector<Piece> pieces;
  std::int64_t width = 0;  ///< in 1/1000 point, without the blank behind it
  bool ends_line = false;  ///< the line ends behind the word
};

/// The faces that the spans of a block are set in.
struct BlockFaces {
  Face text;
  Face code;  ///< its style is combined with that of the span
};

/// Called for each character that the fonts lack, with its index in the text of its span.
using MissingCharacter =
    std::function<void(const Span& span, std::size_t index, char32_t character)>;

[[nodiscard]] std::vector<Word> MakeWords(const InlineText& text, const BlockFaces& faces,
                                          GlyphMeasure& measure, const MissingCharacter& missing);

}  // namespace vellumark::tools
