// SPDX-License-Identifier: MIT
//
// Words: what a line is composed of.
//
// A word is what stands between two blanks; it may change its look within, and so consists of
// pieces of one face and one link each.
//
//     const std::vector<Word> words = MakeWords(inline_text, faces, measure, missing);
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "tools/glyph_codes.h"
#include "tools/markdown_inline.h"
#include "tools/text_measure.h"

namespace vellumark::tools {

struct Piece {
  Face face;
  GlyphRun glyphs;
  std::size_t link = 0;    ///< see Span
  std::int64_t width = 0;  ///< in 1/1000 point
};

struct Word {
  std::vector<Piece> pieces;
  std::int64_t width = 0;  ///< in 1/1000 point, without a blank behind it
  bool ends_line = false;  ///< whatever room is left
};

/// What the spans of a block are set in.
struct BlockFaces {
  Face text;
  Face code;  ///< its style is combined with the span's
};

/// Told where a character stands (in the text that was parsed) which the fonts lack.
using MissingCharacter = std::function<void(const char* where, char32_t character)>;

[[nodiscard]] std::vector<Word> MakeWords(const InlineText& text, const BlockFaces& faces,
                                          GlyphMeasure& measure, const MissingCharacter& missing);

}  // namespace vellumark::tools
