// SPDX-License-Identifier: MIT
//
// The shell of a content stream, shared by shapes and text:
//
//     n 0 obj
//     <<
//     /Length n+1 0 R
//     >>
//     stream
//     Q                 only where the stream before left a graphics state open
//     q                 only where this one is to have one of its own
//     <operators>
//     endstream
//     endobj
//     n+1 0 obj
//     <length>
//     endobj
#pragma once

#include "pdf/oddities.h"
#include "pdf/pdf_writer.h"

namespace vellumark::pdf {

template <class Operators>
void PdfWriter::WriteContentStream(GraphicsState wanted, const Operators& operators) {
  objects_.contents.push_back(BeginStreamObject());
  lines_.Append("stream");
  const std::int32_t start = oddities::Position(lines_);
  SetStateSaved(wanted);
  operators();
  const std::int32_t end = oddities::Position(lines_);
  lines_.Append("endstream");
  lines_.Append("endobj");
  WriteLengthObject(end - start);
}

}  // namespace vellumark::pdf
