// SPDX-License-Identifier: MIT
//
// A page, its stream in a conforming document, and the page tree:
//
//     5 0 obj                             6 0 obj                      2 0 obj
//     << /Length 123                      << /Type /Page               << /Type /Pages
//     /Filter /FlateDecode >>             /Contents [ 5 0 R ]          /Count 1
//     stream                              /Parent 2 0 R                /MediaBox [ 0 0 595 842 ]
//     <the marks of the page>             /Resources 3 0 R             /Kids [ 6 0 R ]
//     endstream                           >>                           >>
//     endobj                              endobj                       endobj
//
// The tree of a classic document has one node. In a conforming one a node has at most 32 kids, and
// is written when all of them are.
#include <algorithm>
#include <span>
#include <string>
#include <utility>

#include "encoding/zlib.h"
#include "pdf/content_stream.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

constexpr std::size_t kKidsOfNode = 32;

/// "[ 30 0 R 33 0 R ]"
std::string ReferenceArray(std::span<const int> numbers) {
  std::string array = "[ ";
  for (const int number : numbers) array.append(std::to_string(number)).append(" 0 R ");
  return array.append("]");
}

bool HasBytesBeyondAscii(std::string_view bytes) {
  std::uint8_t all = 0;
  for (const char c : bytes) all = static_cast<std::uint8_t>(all | static_cast<std::uint8_t>(c));
  return all > 0x7F;
}

/// A node of the page tree: its number and the pages below it.
struct Node {
  int number = 0;
  std::size_t pages = 0;
  std::vector<int> kids;
};

}  // namespace

void PdfWriter::BeginPage() {
  objects_.page_contents = objects_.contents.size();
  objects_.page_annotations = objects_.annotations.size();
  objects_.state_saved = false;
  page_.Reuse();
  graphics_.BeginPage();
}

/// The whole page, margins included.
void PdfWriter::PaintBackground() {
  const bool outlined = state_.oddities.BackgroundsHaveAnOutline();
  if (!outlined && state_.page_color == layout::FormatColor(255, 255, 255)) return;
  WriteMark(MarkKind::Shape, [&] {
    SetFillColor(state_.page_color);
    Content().Append("0 0 ", state_.page.width, ' ', state_.page.height, " re");
    Content().Append(outlined ? "B" : "f");
  });
}

void PdfWriter::EndPage() {
  if (!state_.oddities.EachMarkIsAStream()) WritePageContent();
  const std::size_t room = objects_.page_nodes.size() * kKidsOfNode;
  if (!state_.oddities.ObjectNumbersHave16Bits() && objects_.pages.size() == room) {
    objects_.page_nodes.push_back(objects_.table.Reserve());
  }
  const int page = BeginObject();
  objects_.pages.push_back(page);
  lines_.Append("<<");
  lines_.Append("/Type /Page");
  const auto annotations = std::span(objects_.annotations).subspan(objects_.page_annotations);
  const auto contents = std::span(objects_.contents).subspan(objects_.page_contents);
  if (!annotations.empty()) lines_.Append("/Annots ", ReferenceArray(annotations));
  if (!contents.empty()) lines_.Append("/Contents ", ReferenceArray(contents));
  lines_.Append("/Parent ", Reference{objects_.page_nodes.back()});
  lines_.Append("/Resources ", Reference{objects_.resources});
  if (state_.oddities.RotateIsNotInDegrees()) {
    lines_.Append("/Rotate ", state_.rotated ? 1 : 0);
  } else if (state_.rotated) {
    lines_.Append("/Rotate 90");
  }
  lines_.Append(">>");
  lines_.Append("endobj");
}

/// A stream of its own, compressed if the document is. Returns its number.
/// `entries` stand in its dictionary too.
int PdfWriter::WriteStream(std::string_view data, std::uint8_t level, std::string_view entries) {
  const int number = objects_.table.Reserve();
  WriteStreamAt(number, data, level, entries);
  return number;
}

/// The same under a number that was handed out before.
void PdfWriter::WriteStreamAt(int number, std::string_view data, std::uint8_t level,
                              std::string_view entries) {
  std::string compressed;
  if (state_.compressed) {
    std::int32_t size = 0;
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(data.data());
    encoding::Zlib::Encode(static_cast<std::int32_t>(data.size()), {bytes, data.size()}, size,
                           compressed, level);
    data = compressed;
  }
  objects_.table.SetOffset(number, Position());
  lines_.Append(number, " 0 obj");
  lines_.Append("<<");
  lines_.Append("/Length ", data.size());
  if (state_.compressed) lines_.Append("/Filter /FlateDecode");
  if (!entries.empty()) lines_.Append(entries);
  lines_.Append(">>");
  lines_.Append("stream");
  lines_.Append(data);
  lines_.Append("endstream");
  lines_.Append("endobj");
}

/// A content stream behind those of the page, written at the end: two numbers in a classic
/// document, for the stream and its length.
void PdfWriter::HoldPlace() {
  const bool classic = state_.oddities.EachMarkIsAStream();
  if (!classic) WritePageContent();
  const int number = objects_.table.Reserve();
  if (classic) objects_.table.Reserve();
  objects_.contents.push_back(number);
  objects_.held_places.push_back({number, objects_.state_saved});
  objects_.state_saved = false;
}

void PdfWriter::BeginHeldPlace(std::size_t index) {
  filled_place_ = &objects_.held_places.at(index);
  if (!state_.oddities.EachMarkIsAStream()) {
    page_.Reuse();
    graphics_.Forget();  // the page's own marks stand before
    graphics_.in_text = false;
    return;
  }
  objects_.table.SetOffset(filled_place_->number, Position());
  lines_.Append(filled_place_->number, " 0 obj");
  lines_.Append("<<");
  lines_.Append("/Length ", Reference{filled_place_->number + 1});
  lines_.Append(">>");
  lines_.Append("stream");
  filled_from_ = Position();
  if (filled_place_->state_saved) lines_.Append("Q");
}

void PdfWriter::EndHeldPlace() {
  const int number = std::exchange(filled_place_, nullptr)->number;
  if (!state_.oddities.EachMarkIsAStream()) {
    EndText();
    WriteStreamAt(number, page_.Text(joined_));
    return;
  }
  const std::int64_t length = Position() - filled_from_;
  lines_.Append("endstream");
  lines_.Append("endobj");
  objects_.table.SetOffset(number + 1, Position());
  lines_.Append(number + 1, " 0 obj");
  lines_.Append(length);
  lines_.Append("endobj");
}

/// The marks of the page as one stream; none for a page without marks.
void PdfWriter::WritePageContent() {
  EndText();
  std::string_view marks = page_.Text(joined_);
  if (!marks.empty()) {
    marks.remove_suffix(1);  // the line end, which stands behind the stream anyway
    objects_.codes_beyond_ascii = objects_.codes_beyond_ascii || HasBytesBeyondAscii(marks);
    const std::uint8_t level = graphics_.words_moved ? kLevelOfMovedWords : kLevel;
    objects_.contents.push_back(WriteStream(marks, level));
  }
  // The marks stay for as long as the call that ended the page can be taken back.
  if (!mark_.page_ended) std::swap(page_, marked_page_);
  mark_.page_ended = true;
  page_.Reuse();
  graphics_.BeginPage();
}

/// Writes the tree from its lowest nodes up. Returns the number of the root, which has the page
/// size of all pages.
int PdfWriter::WritePageTree() {
  std::vector<Node> level(objects_.page_nodes.size());
  for (std::size_t i = 0; i < level.size(); ++i) level[i].number = objects_.page_nodes[i];
  for (std::size_t i = 0; i < objects_.pages.size(); ++i) {
    Node& node = level[level.size() == 1 ? 0 : i / kKidsOfNode];
    node.kids.push_back(objects_.pages[i]);
    ++node.pages;
  }
  const auto write = [this](const Node& node, int parent) {
    BeginReservedObject(node.number);
    lines_.Append("<<");
    lines_.Append("/Type /Pages");
    lines_.Append("/Count ", node.pages);
    if (parent != 0) {
      lines_.Append("/Parent ", Reference{parent});
    } else {
      lines_.Append("/MediaBox [ 0 0 ", state_.page.width, ' ', state_.page.height, " ]");
    }
    lines_.Append("/Kids ", ReferenceArray(node.kids));
    lines_.Append(">>");
    lines_.Append("endobj");
  };
  while (level.size() > 1) {
    std::vector<Node> above((level.size() + kKidsOfNode - 1) / kKidsOfNode);
    for (std::size_t i = 0; i < level.size(); ++i) {
      Node& parent = above[i / kKidsOfNode];
      if (parent.number == 0) parent.number = objects_.table.Reserve();
      parent.kids.push_back(level[i].number);
      parent.pages += level[i].pages;
      write(level[i], parent.number);
    }
    level = std::move(above);
  }
  write(level.front(), 0);
  return level.front().number;
}

}  // namespace vellumark::pdf
