// SPDX-License-Identifier: MIT
#include "pdf/content_stream.h"

#include "pdf/syntax.h"

namespace vellumark::pdf {

using document::Pieces;
using document::RefusalNote;

RefusalNote PdfWriter::RoomFor(const Pieces& pieces) const {
  constexpr std::int64_t kPerMark = 2;              // the stream and its length
  constexpr std::int64_t kPerImage = 4;             // a mark that paints it, and itself likewise
  constexpr std::int64_t kPerPalette = 2;           // again a stream and its length
  constexpr std::int64_t kPageEnd = 3;              // the footer, and the page itself
  constexpr std::int64_t kToFinish = kPageEnd + 1;  // and the catalog
  const std::int64_t needed = kPerMark * pieces.marks + pieces.links + kPerImage * pieces.images +
                              kPerPalette * pieces.palettes +
                              (kPageEnd + kPerMark) * pieces.pages;  // a page starts with a mark
  const std::int64_t left = ObjectTable::kHighestNumber - objects_.table.Count() - kToFinish;
  if (needed <= left) return {};
  return {RefusalReason::NoObjectNumbersLeft, 0, static_cast<std::int32_t>(left)};
}

void PdfWriter::Mark() noexcept {
  const Objects& now = objects_;
  mark_ = {now.table.Here(),       now.pages.size(),     now.contents.size(), now.page_contents,
           now.annotations.size(), now.page_annotations, now.images.size(),   now.state_saved};
}

void PdfWriter::BackToMark() noexcept {
  objects_.table.RollBack(mark_.table);
  objects_.pages.resize(mark_.pages);
  objects_.contents.resize(mark_.contents);
  objects_.page_contents = mark_.page_contents;
  objects_.annotations.resize(mark_.annotations);
  objects_.page_annotations = mark_.page_annotations;
  objects_.images.resize(mark_.images);
  objects_.state_saved = mark_.state_saved;
}

/// Opens an object with the next number.
int PdfWriter::BeginObject() {
  const int number = objects_.table.Add(oddities::Position(lines_));
  lines_.Append(number, " 0 obj");
  return number;
}

/// Opens an object whose number was handed out before.
void PdfWriter::BeginReservedObject(int number) {
  if (oddities::kReservedObjectsHaveOffsets) {
    objects_.table.SetOffset(number, oddities::Position(lines_));
  }
  lines_.Append(number, " 0 obj");
}

int PdfWriter::BeginStreamObject() {
  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Length ", Reference{number + 1});
  lines_.Append(">>");
  return number;
}

void PdfWriter::WriteLengthObject(std::int32_t length) {
  BeginObject();
  lines_.Append(length);
  lines_.Append("endobj");
}

void PdfWriter::SetStateSaved(GraphicsState wanted) {
  if (objects_.state_saved) lines_.Append("Q");
  objects_.state_saved = wanted == GraphicsState::Saved;
  if (objects_.state_saved) lines_.Append("q");
}

}  // namespace vellumark::pdf
