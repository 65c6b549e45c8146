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

}  // namespace vellumark::pdf
