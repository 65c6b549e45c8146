// SPDX-License-Identifier: MIT
#include "tools/words.h"

#include <utility>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

FontStyleConstants Combine(FontStyleConstants style, const Span& span) {
  using enum FontStyleConstants;
  const bool bold = span.bold || style == Bold || style == BoldItalic;
  const bool italic = span.italic || style == Italic || style == BoldItalic;
  if (bold) return italic ? BoldItalic : Bold;
  return italic ? Italic : Regular;
}

// A limit on the length of a piece makes the time for breaking an endless word linear.
constexpr std::size_t kLongestPiece = 200;

class WordMaker {
 public:
  WordMaker(const BlockFaces& faces, GlyphMeasure& measure, const MissingCharacter& missing)
      : faces_(faces), measure_(measure), missing_(missing) {}

  void Take(const Span& span) {
    piece_.face = span.code ? faces_.code : faces_.text;
    piece_.face.style = Combine(piece_.face.style, span);
    piece_.link = span.link;
    piece_.struck = span.struck;
    for (std::size_t at = 0; at < span.text.size();) {
      const std::size_t index = at;
      const char32_t character = NextCharacter(span.text, at);
      if (character == '\n' || IsBreakingBlank(character)) {
        EndWord(character == '\n');
      } else if (!AppendCharacter(character, piece_.glyphs)) {
        missing_(span, index, character);
      }
      if (piece_.glyphs.codes.size() >= kLongestPiece) EndPiece();
    }
    EndPiece();
  }

  std::vector<Word> Finish() {
    EndWord(false);
    return std::move(words_);
  }

 private:
  void EndPiece() {
    if (piece_.glyphs.codes.empty()) return;
    piece_.width = measure_.Width(piece_.face, piece_.glyphs.codes);
    word_.width += piece_.width;
    word_.pieces.push_back(piece_);
    piece_.glyphs = {};
  }

  void EndWord(bool ends_line) {
    EndPiece();
    if (!word_.pieces.empty()) words_.push_back(std::exchange(word_, {}));
    if (ends_line && !words_.empty()) words_.back().ends_line = true;
  }

  const BlockFaces& faces_;
  GlyphMeasure& measure_;
  const MissingCharacter& missing_;
  Piece piece_;
  Word word_;
  std::vector<Word> words_;
};

}  // namespace

std::vector<Word> MakeWords(const InlineText& text, const BlockFaces& faces, GlyphMeasure& measure,
                            const MissingCharacter& missing) {
  WordMaker maker(faces, measure, missing);
  for (const Span& span : text.spans) maker.Take(span);
  return maker.Finish();
}

}  // namespace vellumark::tools
