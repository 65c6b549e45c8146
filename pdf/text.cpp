// SPDX-License-Identifier: MIT
//
// A text (PDF Reference, chapter 5) and a link annotation:
//
//     classic          conforming: what is not in force yet      n 0 obj
//     BT               BT                                        <<
//     /F4 12 Tf        0 0 1 rg                                  /Type /Annot
//     1 0 0 1 72 700 Tm  /F4 12 Tf                               /Subtype /Link
//     T* 0 0 1 rg (text) Tj  72 700 TD(text)Tj                   /A << /URI (address) /S /URI >>
//     ET               0 -14 TD(the next line)Tj                 ...
//                      (one more, as far below)'
//
// A line of moved words is one operator, in which numbers (1/1000 em) take the place of gaps:
//
//     T*
//     [(moved )-250(words)]TJ
#include <charconv>
#include <cstring>
#include <utility>

#include "document/font_resource.h"
#include "document/pasted_string.h"
#include "layout/font.h"
#include "pdf/content_stream.h"
#include "pdf/syntax.h"
#include "pdf/text_string.h"

namespace vellumark::pdf {

using document::PagePoint;
using layout::EncodedRun;
using layout::Points;

namespace {

/// The words of a justified line as the operand of TJ: strings, and numbers in 1/1000 em that take
/// the difference between where one word ends and the next one starts.
class MovedWords {
 public:
  explicit MovedWords(std::uint8_t height) : height_(height) {}

  /// The next word starts at `x` points from the start of the line.
  void BeginWord(Points x) {
    const int start = (2000 * x.value() + height_) / (2 * height_);
    gap_ = start - reached_;
    reached_ = start;
  }

  void Add(const EncodedRun& run, std::string& array) {
    const EscapedString string{run.bytes, run.literal};
    if (array.size() < used_ + string.MaxSize() + kMostAround) {
      array.resize(2 * (used_ + string.MaxSize() + kMostAround));
    }
    char* to = array.data() + used_;
    if (used_ == 0) *to++ = '[';
    if (gap_ != 0) to = std::to_chars(to, to + kMostAround, -gap_).ptr;
    gap_ = 0;
    to = string.Write(to);
    used_ = static_cast<std::size_t>(to - array.data());
    reached_ += run.width;
  }

  /// The operator for what was added since the last call; nothing was if it is empty.
  [[nodiscard]] std::string_view Taken(std::string& array) {
    if (used_ == 0) return {};
    std::memcpy(array.data() + used_, "]TJ", 3);
    return {array.data(), std::exchange(used_, 0) + 3};
  }

 private:
  static constexpr std::size_t kMostAround = 16;  // the bracket, a number, and the operator

  std::uint8_t height_;
  std::size_t used_ = 0;
  int gap_ = 0;
  int reached_ = 0;
};

void AppendUnlessEmpty(document::LineBuffer& lines, std::string_view line) {
  if (!line.empty()) lines.Append(line);
}

}  // namespace

void PdfWriter::ShowText(std::span<const EncodedRun> runs, PagePoint baseline) {
  if (state_.oddities.EachMarkIsAStream()) {
    WriteMark(MarkKind::Text, [&] {
      lines_.Append("BT");
      lines_.Append("/F", layout::FontIndex(state_.font), ' ', state_.font.height, " Tf");
      lines_.Append("1 0 0 1 ", baseline.x, ' ', baseline.y, " Tm");
      lines_.Append("T* ", state_.color, " rg ", LiteralString{runs.front().bytes}, " Tj");
      lines_.Append("ET");
    });
    return;
  }
  if (runs.empty()) return;
  if (runs.front().shaped != nullptr) {
    ShowShaped(runs, baseline);
    return;
  }
  WriteMark(MarkKind::Text, [&] {
    BeginText();
    SetFillColor(state_.color);
    SetTextFont(document::FontResource(state_.font, runs.front().encoding));
    const EscapedString first{runs.front().bytes, runs.front().literal};
    if (const auto move = MoveText(baseline)) {
      page_.Append(move->x, ' ', move->y, " TD", first, "Tj");
    } else {
      page_.Append(first, '\'');
    }
    for (const EncodedRun& run : runs.subspan(1)) {
      SetTextFont(document::FontResource(state_.font, run.encoding));
      page_.Append(EscapedString{run.bytes, run.literal}, "Tj");
    }
  });
}

void PdfWriter::ShowWords(std::span<const document::PlacedWord> words, PagePoint baseline) {
  graphics_.words_moved = true;
  WriteMark(MarkKind::Text, [&] {
    BeginText();
    SetFillColor(state_.color);
    if (const auto move = MoveText(baseline)) {
      page_.Append(move->x, ' ', move->y, " TD");
    } else {
      page_.Append("T*");
    }
    MovedWords moved(state_.font.height);
    for (const document::PlacedWord& word : words) {
      moved.BeginWord(word.x);
      for (const EncodedRun& run : word.runs) {
        const int resource = document::FontResource(state_.font, run.encoding);
        if (graphics_.font != resource || graphics_.font_height != state_.font.height) {
          AppendUnlessEmpty(page_, moved.Taken(array_));
          SetTextFont(resource);
        }
        moved.Add(run, array_);
      }
    }
    AppendUnlessEmpty(page_, moved.Taken(array_));
  });
}

void PdfWriter::WriteLink(std::string_view uri, PagePoint top_left, PagePoint bottom_right) {
  objects_.annotations.push_back(BeginObject());
  lines_.Append("<<");
  lines_.Append("/Type /Annot");
  lines_.Append("/Subtype /Link");
  if (state_.oddities.PropertiesAreUnescaped()) {
    lines_.Append("/A << /URI ", document::PastedString{uri}, " /S /URI >>");
  } else if (uri.starts_with('#') && uri.size() > 1) {
    uri.remove_prefix(1);
    lines_.Append("/A << /D ", EscapedString{uri}, " /S /GoTo >>");
    linked_names_.insert_or_assign(std::string(uri), Destination{objects_.pages.size(), top_left});
  } else {
    lines_.Append("/A << /URI ", UriString{uri}, " /S /URI >>");
  }
  lines_.Append("/Border [0 0 0]");
  lines_.Append("/C [0 0 0]");
  lines_.Append("/Rect [", top_left.x, ' ', top_left.y, ' ', bottom_right.x, ' ', bottom_right.y,
                ']');
  lines_.Append(">>");
  lines_.Append("endobj");
}

}  // namespace vellumark::pdf
