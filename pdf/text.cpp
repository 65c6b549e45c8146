// SPDX-License-Identifier: MIT
//
// A text run (PDF Reference 1.2, chapter 9) and a link annotation:
//
//     BT                                n 0 obj
//     /F4 12 Tf                         <<
//     1 0 0 1 72 700 Tm                 /Type /Annot
//     T* 0 0 0 rg (text) Tj             /Subtype /Link
//     ET                                /A << /URI (address) /S /URI >> ...
#include "layout/font.h"
#include "pdf/content_stream.h"
#include "pdf/oddities.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {

using document::PagePoint;

void PdfWriter::ShowText(std::string_view text, PagePoint baseline) {
  WriteContentStream(GraphicsState::NotSaved, [&] {
    lines_.Append("BT");
    lines_.Append("/F", layout::FontIndex(state_.font), ' ', state_.font.height, " Tf");
    lines_.Append("1 0 0 1 ", baseline.x, ' ', baseline.y, " Tm");
    lines_.Append("T* ", state_.color.view(), " rg ", LiteralString{text}, " Tj");
    lines_.Append("ET");
  });
}

void PdfWriter::WriteLink(std::string_view uri, PagePoint top_left, PagePoint bottom_right) {
  objects_.annotations.push_back(BeginObject());
  lines_.Append("<<");
  lines_.Append("/Type /Annot");
  lines_.Append("/Subtype /Link");
  lines_.Append("/A << /URI ", oddities::UnescapedText(uri), " /S /URI >>");
  lines_.Append("/Border [0 0 0]");
  lines_.Append("/C [0 0 0]");
  lines_.Append("/Rect [", top_left.x, ' ', top_left.y, ' ', bottom_right.x, ' ', bottom_right.y,
                ']');
  lines_.Append(">>");
  lines_.Append("endobj");
}

}  // namespace vellumark::pdf
