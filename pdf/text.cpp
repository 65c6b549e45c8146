// SPDX-License-Identifier: MIT
//
// A text (PDF Reference, chapter 5) and a link annotation:
//
//     classic          conforming: what is not in force yet      n 0 obj
//     BT               BT                                        <<
//     /F4 12 Tf        0 0 1 rg                                  /Type /Annot
//     1 0 0 1 72 700 Tm  /F4 12 Tf                               /Subtype /Link
//     T* 0 0 1 rg (text) Tj  72 700 Td(text)Tj                   /A << /URI (address) /S /URI >>
//     ET               0 -14 Td(the next line)Tj                 ...
//
// A line of moved words is one operator, in which numbers (1/1000 em) take the place of gaps:
//
//     0 -14 Td[(moved )-250(words)]TJ
#include "document/font_resource.h"
#include "document/pasted_string.h"
#include "layout/font.h"
#include "layout/rounding.h"
#include "pdf/content_stream.h"
#include "pdf/syntax.h"
#include "pdf/text_string.h"

namespace vellumark::pdf {

using document::PagePoint;
using layout::EncodedRun;

void PdfWriter::ShowText(std::span<const EncodedRun> runs, PagePoint baseline) {
  if (state_.oddities.EachMarkIsAStream()) {
    WriteMark(MarkKind::Text, [&] {
      lines_.Append("BT");
      lines_.Append("/F", layout::FontIndex(state_.font), ' ', state_.font.height, " Tf");
      lines_.Append("1 0 0 1 ", baseline.x, ' ', baseline.y, " Tm");
      lines_.Append("T* ", state_.color.view(), " rg ", LiteralString{runs.front().bytes}, " Tj");
      lines_.Append("ET");
    });
    return;
  }
  if (runs.empty()) return;
  WriteMark(MarkKind::Text, [&] {
    BeginText();
    SetFillColor(state_.color);
    MoveText(baseline);
    for (const EncodedRun& run : runs) {
      SetTextFont(document::FontResource(state_.font, run.encoding));
      page_.Append(EscapedString{run.bytes}, "Tj");
    }
  });
}

/// Sets the font unless it is in force.
void PdfWriter::SetTextFont(int resource) {
  if (graphics_.font == resource && graphics_.font_height == state_.font.height) return;
  page_.Append("/F", resource, ' ', state_.font.height, " Tf");
  graphics_.font = resource;
  graphics_.font_height = state_.font.height;
  objects_.fonts_used[static_cast<std::size_t>(resource)] = true;
}

/// Starts a line of text at `baseline`, counted from where the one before started.
void PdfWriter::MoveText(PagePoint baseline) {
  page_.Append(baseline.x - graphics_.text_x, ' ', baseline.y - graphics_.text_y, " Td");
  graphics_.text_x = baseline.x;
  graphics_.text_y = baseline.y;
}

/// A number takes the difference between where one word ends and the next one starts.
void PdfWriter::ShowWords(std::span<const document::PlacedWord> words, PagePoint baseline) {
  WriteMark(MarkKind::Text, [&] {
    BeginText();
    SetFillColor(state_.color);
    MoveText(baseline);
    array_.clear();
    const auto show = [this] {
      if (!array_.empty()) page_.Append('[', array_, "]TJ");
      array_.clear();
    };
    std::int64_t reached = 0;  // 1/1000 em, from the start of the line
    for (const document::PlacedWord& word : words) {
      const std::int64_t start =
          layout::RoundHalfEven(word.x.value() * 1000.0 / state_.font.height);
      std::int64_t gap = start - reached;
      reached = start;
      for (const EncodedRun& run : word.runs) {
        const int resource = document::FontResource(state_.font, run.encoding);
        if (graphics_.font != resource || graphics_.font_height != state_.font.height) show();
        SetTextFont(resource);
        if (gap != 0) array_.append(std::to_string(-gap));
        document::AppendTo(array_, EscapedString{run.bytes});
        reached += run.width;
        gap = 0;
      }
    }
    show();
  });
}

void PdfWriter::WriteLink(std::string_view uri, PagePoint top_left, PagePoint bottom_right) {
  objects_.annotations.push_back(BeginObject());
  lines_.Append("<<");
  lines_.Append("/Type /Annot");
  lines_.Append("/Subtype /Link");
  if (state_.oddities.PropertiesAreUnescaped()) {
    lines_.Append("/A << /URI ", document::PastedString{uri}, " /S /URI >>");
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
