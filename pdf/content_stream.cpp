// SPDX-License-Identifier: MIT
#include "pdf/content_stream.h"

#include <algorithm>
#include <limits>

#include <vellumark/run_time_error.h>

#include "pdf/syntax.h"

namespace vellumark::pdf {

using document::Pieces;
using document::RefusalNote;

namespace {

/// Apart, because what accepts every call should not wait for a note that is put together.
[[gnu::noinline]] RefusalNote NoNumbersLeft(std::int64_t left) {
  return {RefusalReason::NoObjectNumbersLeft, 0, static_cast<std::int32_t>(left)};
}

}  // namespace

RefusalNote PdfWriter::RoomFor(const Pieces& pieces) const {
  const auto bookmarks = static_cast<std::int64_t>(objects_.bookmarks.size()) + pieces.bookmarks;
  // The page end and the catalog, and an outline's entries and root.
  std::int64_t left = objects_.table.Left() - 4 - (bookmarks == 0 ? 0 : bookmarks + 1);
  std::int64_t needed = pieces.links + pieces.soft_masks;
  if (state_.oddities.EachMarkIsAStream()) {
    // A mark is a stream and its length; an image is a mark that paints it, and itself likewise. A
    // page ends with its footer and itself, and starts with a mark.
    const std::int64_t header = state_.header.empty() ? 0 : 2;
    left -= header;
    needed += 2 * pieces.marks + 4 * pieces.images + 2 * pieces.palettes;
    needed += (5 + header) * pieces.pages;
  } else {
    // A page is its stream, itself and a place that is kept. The document ends with its fonts and
    // the nodes of its page tree.
    constexpr std::int64_t kMostFontObjects = std::int64_t{6} * layout::FontCollection::kMostFonts;
    left -= 100 + objects_.table.Count() / 16 + (state_.fonts.Empty() ? 0 : kMostFontObjects);
    needed += pieces.images + pieces.palettes + 3 * pieces.pages;
  }
  return needed <= left ? RefusalNote() : NoNumbersLeft(left);
}

// Called for every mark: member by member, since a Place that is put together first and copied then
// waits for its own stores.
void PdfWriter::Mark() noexcept {
  mark_.table = objects_.table.Here();
  mark_.pages = objects_.pages.size();
  mark_.page_nodes = objects_.page_nodes.size();
  mark_.contents = objects_.contents.size();
  mark_.page_contents = objects_.page_contents;
  mark_.annotations = objects_.annotations.size();
  mark_.page_annotations = objects_.page_annotations;
  mark_.images = objects_.images.size();
  mark_.held_places = objects_.held_places.size();
  mark_.bookmarks = objects_.bookmarks.size();
  mark_.state_saved = objects_.state_saved;
  if (state_.oddities.EachMarkIsAStream()) return;  // the rest is always empty then
  page_.Here(mark_.page);
  mark_.in_text = graphics_.in_text;
  mark_.text_x = graphics_.text_x;
  mark_.text_y = graphics_.text_y;
  mark_.page_ended = false;
  mark_.least_version = least_version_;
  mark_.glyphs = glyphs_.Here();
}

void PdfWriter::BackToMark() noexcept {
  objects_.table.RollBack(mark_.table);
  objects_.pages.resize(mark_.pages);
  objects_.page_nodes.resize(mark_.page_nodes);
  objects_.contents.resize(mark_.contents);
  objects_.page_contents = mark_.page_contents;
  objects_.annotations.resize(mark_.annotations);
  objects_.page_annotations = mark_.page_annotations;
  objects_.images.resize(mark_.images);
  objects_.held_places.resize(mark_.held_places);
  objects_.bookmarks.resize(mark_.bookmarks);
  objects_.image_keys.resize(std::min(mark_.images, objects_.image_keys.size()));
  objects_.state_saved = mark_.state_saved;
  if (mark_.page_ended) std::swap(page_, marked_page_);
  mark_.page_ended = false;
  page_.RollBack(mark_.page);
  graphics_.Forget();
  graphics_.in_text = mark_.in_text;
  graphics_.text_x = mark_.text_x;
  graphics_.text_y = mark_.text_y;
  least_version_ = mark_.least_version;
  glyphs_.RollBack(mark_.glyphs);
}

/// Where the next line comes to stand. Raises run-time error 6 for a position that the format has
/// no room for: 32 bits in a classic document, ten digits in a conforming one.
std::int64_t PdfWriter::Position() const {
  const bool classic = state_.oddities.PositionsLeaveOutLineEnds();
  const std::int64_t line_ends = classic ? 2 * static_cast<std::int64_t>(lines_.LineCount()) : 0;
  const std::int64_t position = lines_.ByteCount() - line_ends;
  const std::int64_t last = classic ? std::numeric_limits<std::int32_t>::max() : 9999999999;
  if (position > last) throw RunTimeError(RunTimeError::Overflow);
  return position;
}

/// Opens an object with the next number.
int PdfWriter::BeginObject() {
  const int number = objects_.table.Add(Position());
  lines_.Append(number, " 0 obj");
  return number;
}

/// Opens an object whose number was handed out before.
void PdfWriter::BeginReservedObject(int number) {
  if (!state_.oddities.ReservedObjectsHaveNoOffset()) objects_.table.SetOffset(number, Position());
  lines_.Append(number, " 0 obj");
}

int PdfWriter::BeginStreamObject() {
  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Length ", Reference{number + 1});
  lines_.Append(">>");
  return number;
}

void PdfWriter::WriteLengthObject(std::int64_t length) {
  BeginObject();
  lines_.Append(length);
  lines_.Append("endobj");
}

/// Returns where the mark's stream starts, if it has one of its own.
std::int64_t PdfWriter::BeginMark(MarkKind kind) {
  if (!state_.oddities.EachMarkIsAStream()) {
    if (kind != MarkKind::Text) EndText();
    if (kind == MarkKind::Image) page_.Append("q");
    return 0;
  }
  graphics_.BeginStream();
  if (filled_place_ != nullptr) return 0;  // its stream is open
  objects_.contents.push_back(BeginStreamObject());
  lines_.Append("stream");
  const std::int64_t start = Position();
  SetStateSaved(kind != MarkKind::Text);
  return start;
}

void PdfWriter::EndMark(MarkKind kind, std::int64_t start) {
  if (!state_.oddities.EachMarkIsAStream()) {
    if (kind == MarkKind::Image) page_.Append("Q");
    return;
  }
  if (filled_place_ != nullptr) return;
  const std::int64_t length = Position() - start;
  lines_.Append("endstream");
  lines_.Append("endobj");
  WriteLengthObject(length);
}

void PdfWriter::SetStateSaved(bool wanted) {
  if (objects_.state_saved) lines_.Append("Q");
  objects_.state_saved = wanted;
  if (wanted) lines_.Append("q");
}

void PdfWriter::BeginText() {
  if (graphics_.in_text) return;
  Content().Append("BT");
  graphics_.in_text = true;
  graphics_.text_x = 0;
  graphics_.text_y = 0;
}

void PdfWriter::EndText() {
  if (!graphics_.in_text) return;
  Content().Append("ET");
  graphics_.in_text = false;
}

}  // namespace vellumark::pdf
