// SPDX-License-Identifier: MIT
//
// A text in loaded fonts: codes of two bytes, moved where the letters are kerned, and by numbers of
// their own where marks stand above or below others:
//
//     /F101 12 Tf
//     72 700 TD
//     [(...)-20(...)]TJ
//     2.5 Ts                                              a glyph that stands higher
//     /Span<</ActualText<FEFF0041>>>BDC [(...)]TJ EMC     a text that its codes do not give back
//
// The writer puts the operators of a run together in one piece.
#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

#include "document/font_resource.h"
#include "pdf/content_stream.h"
#include "pdf/decimal.h"
#include "pdf/text_string.h"

namespace vellumark::pdf {

using layout::EncodedRun;
using layout::PlacedGlyph;

namespace {

/// The operators that show a run.
class RunOperators {
 public:
  RunOperators(std::string& text, int height) : text_(text), height_(height) { text_.clear(); }

  /// The next glyph is shown `thousandths` farther to the right.
  void Move(std::int32_t thousandths) { move_ += thousandths; }

  void Rise(std::int32_t thousandths) {
    if (thousandths == rise_) return;
    EndArray();
    rise_ = thousandths;
    std::array<char, Decimal<3>::MaxSize()> digits{};
    char* const end = Decimal(rise_ * height_ / 1000.0).Write(digits.data());
    text_.append(digits.data(), static_cast<std::size_t>(end - digits.data())).append(" Ts\n");
  }

  void Show(std::uint16_t code) {
    std::array<char, 32> piece{};
    char* to = piece.data();
    if (!in_array_) *to++ = '[';
    in_array_ = true;
    if (move_ != 0) {
      if (in_string_) *to++ = ')';
      in_string_ = false;
      to = std::to_chars(to, piece.data() + piece.size(), -std::exchange(move_, 0)).ptr;
    }
    if (!in_string_) *to++ = '(';
    in_string_ = true;
    const std::array<char, 2> bytes = {static_cast<char>(code >> 8), static_cast<char>(code)};
    to = EscapedString::WriteInside({bytes.data(), bytes.size()}, to);
    text_.append(piece.data(), static_cast<std::size_t>(to - piece.data()));
  }

  /// The codes of a standard font.
  void Show(std::string_view codes) {
    if (!in_array_) text_ += '[';
    in_array_ = true;
    if (move_ != 0) text_ += std::to_string(-std::exchange(move_, 0));
    const std::size_t size = text_.size();
    text_.resize(size + EscapedString{codes}.MaxSize());
    const char* const end = EscapedString{codes}.Write(text_.data() + size);
    text_.resize(static_cast<std::size_t>(end - text_.data()));
  }

  void BeginSpan(std::string_view utf8) {
    EndArray();
    text_ += "/Span<</ActualText";
    const std::size_t size = text_.size();
    // Behind a character beyond ASCII the text is UTF-16 behind its byte order mark.
    text_.resize(size + TextString{utf8}.MaxSize());
    const char* const end = TextString{utf8}.Write(text_.data() + size);
    text_.resize(static_cast<std::size_t>(end - text_.data()));
    text_ += ">>BDC\n";
  }
  void EndSpan() {
    EndArray();
    text_ += "EMC\n";
  }

  /// The operators without the last line end; what is left of a move is the next run's.
  [[nodiscard]] std::string_view Taken() {
    Rise(0);
    EndArray();
    if (!text_.empty()) text_.pop_back();
    return text_;
  }
  [[nodiscard]] std::int32_t MoveLeft() const noexcept { return move_; }

 private:
  void EndString() {
    if (in_string_) text_ += ')';
    in_string_ = false;
  }
  void EndArray() {
    EndString();
    if (in_array_) text_ += "]TJ\n";
    in_array_ = false;
  }

  std::string& text_;
  int height_;
  std::int32_t move_ = 0;
  std::int32_t rise_ = 0;
  bool in_array_ = false;
  bool in_string_ = false;
};

/// Glyphs that are shown together, and the text that they give back.
struct GlyphGroup {
  std::size_t end = 0;
  std::string_view text;
  bool plain = true;  ///< their codes give it back
};

/// The cluster that begins at glyph `first`.
GlyphGroup ClusterAt(document::GlyphUse& use, document::GlyphUse::Font& font, const EncodedRun& run,
                     std::size_t first) {
  const std::span<const PlacedGlyph> glyphs = run.shaped->glyphs;
  GlyphGroup cluster;
  cluster.end = first + 1;
  while (cluster.end < glyphs.size() && glyphs[cluster.end].text_size == 0) ++cluster.end;
  cluster.text = run.bytes.substr(glyphs[first].text_begin, glyphs[first].text_size);
  if (cluster.text.empty()) return cluster;
  if (cluster.end == first + 1) {
    cluster.plain = use.Means(font, use.CodeOf(font, glyphs[first].id), cluster.text);
    return cluster;
  }
  cluster.plain = false;
  for (std::size_t i = first; i < cluster.end; ++i) {
    use.LearnPart(font, use.CodeOf(font, glyphs[i].id), cluster.text);
  }
  return cluster;
}

/// The cluster, or from left to right all up to the next blank: a span around a part of a word
/// would be taken for a word, since the marks in it stand back from its end.
GlyphGroup GroupAt(document::GlyphUse& use, document::GlyphUse::Font& font, const EncodedRun& run,
                   std::size_t first) {
  const std::span<const PlacedGlyph> glyphs = run.shaped->glyphs;
  GlyphGroup group = ClusterAt(use, font, run, first);
  if (group.text == " " || glyphs.front().text_begin > glyphs.back().text_begin) return group;
  while (group.end < glyphs.size()) {
    const GlyphGroup next = ClusterAt(use, font, run, group.end);
    if (next.text == " ") break;
    group.end = next.end;
    group.text = run.bytes.substr(glyphs[first].text_begin, group.text.size() + next.text.size());
    group.plain = group.plain && next.plain;
  }
  return group;
}

}  // namespace

void PdfWriter::SetLoadedFont(int number) {
  if (graphics_.font == number && graphics_.font_height == state_.font.height) return;
  page_.Append("/F", number, ' ', state_.font.height, " Tf");
  graphics_.font = number;
  graphics_.font_height = state_.font.height;
}

void PdfWriter::ShowShaped(std::span<const EncodedRun> runs, document::PagePoint baseline) {
  graphics_.words_moved = true;
  constexpr int kVersionOfSpans = 5;
  constexpr int kVersionOfFonts = 4;
  WriteMark(MarkKind::Text, [&] {
    BeginText();
    SetFillColor(state_.color);
    if (const auto move = MoveText(baseline)) {
      page_.Append(move->x, ' ', move->y, " TD");
    } else {
      page_.Append("T*");
    }
    std::int32_t move = 0;  // from one run to the next
    for (const EncodedRun& run : runs) {
      RunOperators operators(array_, state_.font.height);
      operators.Move(move);
      if (run.shaped->font == 0) {
        SetTextFont(document::FontResource(state_.font, run.encoding));
        operators.Show(run.bytes);
        operators.Move(run.shaped->gap);
      } else {
        SetLoadedFont(run.shaped->font);
        least_version_ = std::max(least_version_, kVersionOfFonts);
        document::GlyphUse::Font& font = glyphs_.Of(run.shaped->font);
        for (std::size_t i = 0; i < run.shaped->glyphs.size();) {
          const GlyphGroup group = GroupAt(glyphs_, font, run, i);
          if (!group.plain) operators.BeginSpan(group.text);
          for (; i < group.end; ++i) {
            const PlacedGlyph& glyph = run.shaped->glyphs[i];
            const std::uint16_t code = glyphs_.CodeOf(font, glyph.id);
            operators.Rise(glyph.dy);
            operators.Move(glyph.dx);
            operators.Show(code);
            operators.Move(glyph.advance - font.advances[code] - glyph.dx);
          }
          if (group.plain) continue;
          operators.EndSpan();
          least_version_ = std::max(least_version_, kVersionOfSpans);
        }
      }
      move = operators.MoveLeft();
      const std::string_view taken = operators.Taken();
      if (!taken.empty()) page_.Append(taken);
    }
  });
}

}  // namespace vellumark::pdf
