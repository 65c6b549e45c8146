// SPDX-License-Identifier: MIT
//
// A text in loaded fonts, and the fonts themselves in the file's setup (embedded_fonts.h):
//
//     F101 12 f                    font and size, as of the standard ones
//     72 700 moveto
//     [<00010002>-.24<0003>]K      codes of two bytes, and moves in points between them
//     0 2.5 rmoveto                glyphs that stand higher; and back
//     (Latin)t                     what a standard font shows of it
#include <algorithm>
#include <string>

#include "document/font_resource.h"
#include "ps/literal_string.h"
#include "ps/ps_writer.h"
#include "ps/real.h"

namespace vellumark::ps {

using layout::EncodedRun;
using layout::PlacedGlyph;

namespace {

std::string RealText(double value) {
  std::string text(Real::MaxSize(), ' ');
  const char* const end = Real(static_cast<float>(value)).Write(text.data());
  text.resize(static_cast<std::size_t>(end - text.data()));
  return text;
}

/// The operators that show a run of glyphs.
class GlyphOperators {
 public:
  GlyphOperators(std::string& text, int height) : text_(text), height_(height) { text_.clear(); }

  void Move(std::int32_t thousandths) { move_ += thousandths; }

  void Rise(std::int32_t thousandths) {
    if (thousandths == rise_) return;
    EndArray();
    text_.append("0 ").append(RealText(Points(thousandths - rise_))).append(" rmoveto\n");
    rise_ = thousandths;
    line_ = text_.size();
  }

  void Show(std::uint16_t code) {
    constexpr std::size_t kLongestLine = 80;
    if (!in_array_) text_ += '[';
    in_array_ = true;
    if (move_ != 0) {
      EndString();
      BreakLine(kLongestLine);
      text_.append(RealText(Points(move_)));
      move_ = 0;
    }
    if (!in_string_) text_ += '<';
    in_string_ = true;
    BreakLine(kLongestLine);
    for (int shift = 12; shift >= 0; shift -= 4) {
      text_ += "0123456789ABCDEF"[code >> shift & 0xFU];
    }
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
  [[nodiscard]] double Points(std::int32_t thousandths) const noexcept {
    return thousandths * height_ / 1000.0;
  }
  void BreakLine(std::size_t longest) {
    if (text_.size() - line_ < longest) return;
    text_ += '\n';
    line_ = text_.size();
  }
  void EndString() {
    if (in_string_) text_ += '>';
    in_string_ = false;
  }
  void EndArray() {
    EndString();
    if (in_array_) text_ += "]K\n";
    if (in_array_) line_ = text_.size();
    in_array_ = false;
  }

  std::string& text_;
  int height_;
  std::size_t line_ = 0;  // where the last one begins
  std::int32_t move_ = 0;
  std::int32_t rise_ = 0;
  bool in_array_ = false;
  bool in_string_ = false;
};

}  // namespace

void PsWriter::SetLoadedFont(int number) {
  if (HasFont(number)) return;
  lines_.Append('F', number, ' ', state_.font.height, " f");
  graphics_.font = number;
  graphics_.font_height = state_.font.height;
}

void PsWriter::ShowShaped(std::span<const EncodedRun> runs, document::PagePoint baseline) {
  constexpr int kLanguageLevelOfFonts = 3;
  SetColor(state_.color);
  MoveTo(baseline);
  std::int32_t move = 0;  // from one run to the next
  const auto move_now = [&] {
    if (move == 0) return;
    lines_.Append(RealText(move * state_.font.height / 1000.0), " 0 rmoveto");
    move = 0;
  };
  for (const EncodedRun& run : runs) {
    if (run.shaped->font == 0) {
      move_now();
      const int resource = document::FontResource(state_.font, run.encoding);
      if (!HasFont(resource)) SetFont(resource);
      const EscapedString text(run.bytes);
      if (!text.Plain()) fonts_.AddCodes(resource, run.bytes);
      lines_.Append(text, 't');
      move = run.shaped->gap;
      continue;
    }
    language_level_ = std::max(language_level_, kLanguageLevelOfFonts);
    SetLoadedFont(run.shaped->font);
    document::GlyphUse::Font& font = glyphs_.Of(run.shaped->font);
    GlyphOperators operators(words_, state_.font.height);
    operators.Move(move);
    for (const PlacedGlyph& glyph : run.shaped->glyphs) {
      const std::uint16_t code = glyphs_.CodeOf(font, glyph.id);
      operators.Rise(glyph.dy);
      operators.Move(glyph.dx);
      operators.Show(code);
      operators.Move(glyph.advance - font.advances[code] - glyph.dx);
    }
    move = operators.MoveLeft();
    const std::string_view taken = operators.Taken();
    if (!taken.empty()) lines_.Append(taken);
  }
}

}  // namespace vellumark::ps
