// SPDX-License-Identifier: MIT
#include "tools/words.h"

#include <algorithm>
#include <utility>

#include "tools/shown_text.h"
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

/// How many characters from `at` on are ASCII other than blanks and controls.
std::size_t PlainFrom(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && text[end] > ' ' && text[end] < 0x7F) ++end;
  return end - at;
}

class WordMaker {
 public:
  WordMaker(const BlockFaces& faces, TextMeasure& measure) : faces_(faces), measure_(measure) {}

  void Take(const Span& span) {
    piece_.face = span.code ? faces_.code : faces_.text;
    piece_.face.style = Combine(piece_.face.style, span);
    piece_.link = span.link;
    piece_.struck = span.struck;
    for (std::size_t at = 0; at < span.text.size();) {
      if (const std::size_t plain = std::min(PlainFrom(span.text, at), kLongestPiece)) {
        piece_.text += span.text.substr(at, plain);
        at += plain;
      } else {
        const char32_t character = NextCharacter(span.text, at);
        if (character == '\n' || IsBreakingBlank(character)) {
          EndWord(character == '\n');
        } else {
          AppendShown(character, piece_.text);
        }
      }
      if (piece_.text.size() >= kLongestPiece) EndPiece();
    }
    EndPiece();
  }

  std::vector<Word> Finish() {
    EndWord(false);
    return std::move(words_);
  }

 private:
  void EndPiece() {
    if (piece_.text.empty()) return;
    piece_.width = measure_.Width(piece_.face, piece_.text);
    word_.width += piece_.width;
    word_.pieces.push_back(piece_);
    piece_.text.clear();
  }

  void EndWord(bool ends_line) {
    EndPiece();
    if (!word_.pieces.empty()) words_.push_back(std::exchange(word_, {}));
    if (ends_line && !words_.empty()) words_.back().ends_line = true;
  }

  const BlockFaces& faces_;
  TextMeasure& measure_;
  Piece piece_;
  Word word_;
  std::vector<Word> words_;
};

}  // namespace

std::vector<Word> MakeWords(const InlineText& text, const BlockFaces& faces, TextMeasure& measure) {
  WordMaker maker(faces, measure);
  for (const Span& span : text.spans) maker.Take(span);
  return maker.Finish();
}

}  // namespace vellumark::tools
