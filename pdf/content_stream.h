// SPDX-License-Identifier: MIT
//
// Where the marks of a page go. In a conforming document they follow each other in the page's one
// stream (pages.cpp); in a classic one each has a stream of its own:
//
//     n 0 obj
//     <<
//     /Length n+1 0 R
//     >>
//     stream
//     Q                 only if the stream before left a graphics state open
//     q                 only if this one is to have one of its own: not for a text
//     <operators>
//     endstream
//     endobj
//     n+1 0 obj
//     <length>
//     endobj
#pragma once

#include "pdf/pdf_writer.h"

namespace vellumark::pdf {

inline document::LineBuffer& PdfWriter::Content() {
  return state_.oddities.EachMarkIsAStream() ? lines_ : page_;
}

template <class Operators>
void PdfWriter::WriteMark(MarkKind kind, const Operators& operators) {
  const std::int64_t start = BeginMark(kind);
  operators();
  EndMark(kind, start);
}

/// Sets the font unless it is in force.
inline void PdfWriter::SetTextFont(int resource) {
  if (graphics_.font == resource && graphics_.font_height == state_.font.height) return;
  page_.Append("/F", resource, ' ', state_.font.height, " Tf");
  graphics_.font = resource;
  graphics_.font_height = state_.font.height;
  objects_.fonts_used[static_cast<std::size_t>(resource)] = true;
}

/// Where a line of text starts, counted from where the one before started; nothing if it is as far
/// below as that one was below its own predecessor.
inline std::optional<PdfWriter::TextMove> PdfWriter::MoveText(document::PagePoint baseline) {
  const TextMove move = {baseline.x - graphics_.text_x, baseline.y - graphics_.text_y};
  graphics_.text_x = baseline.x;
  graphics_.text_y = baseline.y;
  if (move.x == 0 && move.y == graphics_.line_step) return std::nullopt;
  graphics_.line_step = move.y;
  return move;
}

}  // namespace vellumark::pdf
