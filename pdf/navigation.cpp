// SPDX-License-Identifier: MIT
//
// What leads from one place of the document to another (PDF Reference, chapter 8):
//
//     20 0 obj << /Type /Outlines /First 21 0 R /Last 23 0 R /Count 3 >>
//     21 0 obj << /Title (One) /Parent 20 0 R /Next 23 0 R /First 22 0 R /Last 22 0 R /Count 1
//                 /Dest [ 5 0 R /XYZ 50 792 null ] >>
//     ...
//     catalog: /Outlines 20 0 R /Names << /Dests << /Names [ (name) [ 5 0 R /XYZ 50 792 null ] ] >>
//     >>
#include <string>

#include "pdf/content_stream.h"
#include "pdf/syntax.h"
#include "pdf/text_string.h"

namespace vellumark::pdf {
namespace {

/// Where an entry stands among the others; counted from 1, 0 for none.
struct Entry {
  std::size_t parent = 0;
  std::size_t previous = 0;
  std::size_t next = 0;
  std::size_t first = 0;
  std::size_t last = 0;
  std::size_t below = 0;  // entries below it, all of them open
};

}  // namespace

void PdfWriter::WriteBookmark(std::string_view text, int level, document::PagePoint place) {
  objects_.bookmarks.push_back({std::string(text), level, {objects_.pages.size(), place}});
}

void PdfWriter::SetAnchor(std::string_view name, document::PagePoint place) {
  anchors_.insert_or_assign(std::string(name), Destination{objects_.pages.size(), place});
}

std::string PdfWriter::MissingAnchor() const {
  for (const auto& [name, link] : linked_names_) {
    if (anchors_.find(name) == anchors_.end()) return name;
  }
  return {};
}

/// "[ 5 0 R /XYZ 50 792 null ]"
std::string PdfWriter::DestinationText(const Destination& destination) const {
  std::string text = "[ ";
  text.append(std::to_string(objects_.pages.at(destination.page))).append(" 0 R /XYZ ");
  text.append(std::to_string(destination.place.x.value())).append(" ");
  return text.append(std::to_string(destination.place.y.value())).append(" null ]");
}

/// Returns the number of the outline's root; 0 if there are no bookmarks.
int PdfWriter::WriteOutlines() {
  const std::size_t count = objects_.bookmarks.size();
  if (count == 0) return 0;
  std::vector<Entry> entries(count + 1);  // the root is entry 0
  std::vector<std::size_t> open = {0};    // the last entry of each level
  for (std::size_t i = 1; i <= count; ++i) {
    const auto level = static_cast<std::size_t>(objects_.bookmarks[i - 1].level);
    open.resize(std::min(level, open.size()));
    Entry& entry = entries[i];
    entry.parent = open.back();
    Entry& parent = entries[entry.parent];
    entry.previous = parent.last;
    if (parent.last != 0) entries[parent.last].next = i;
    if (parent.first == 0) parent.first = i;
    parent.last = i;
    open.push_back(i);
  }
  for (std::size_t i = count; i > 0; --i) entries[entries[i].parent].below += entries[i].below + 1;

  const int root = BeginObject();
  const auto number = [&](std::size_t entry) { return Reference{root + static_cast<int>(entry)}; };
  const auto write_kids = [&](const Entry& entry) {
    if (entry.first == 0) return;
    lines_.Append("/First ", number(entry.first));
    lines_.Append("/Last ", number(entry.last));
    lines_.Append("/Count ", entry.below);
  };
  lines_.Append("<<");
  lines_.Append("/Type /Outlines");
  write_kids(entries[0]);
  lines_.Append(">>");
  lines_.Append("endobj");
  for (std::size_t i = 1; i <= count; ++i) {
    const Bookmark& bookmark = objects_.bookmarks[i - 1];
    BeginObject();
    lines_.Append("<<");
    lines_.Append("/Title ", TextString{bookmark.text});
    lines_.Append("/Parent ", number(entries[i].parent));
    if (entries[i].previous != 0) lines_.Append("/Prev ", number(entries[i].previous));
    if (entries[i].next != 0) lines_.Append("/Next ", number(entries[i].next));
    write_kids(entries[i]);
    lines_.Append("/Dest ", DestinationText(bookmark.destination));
    lines_.Append(">>");
    lines_.Append("endobj");
  }
  return root;
}

/// The named places that links lead to, in the order of their bytes as the format asks. A link
/// whose anchor never came leads to itself: readers complain of a name without a place.
void PdfWriter::WriteAnchors() {
  if (linked_names_.empty()) return;
  lines_.Append("/Names << /Dests << /Names [");
  for (const auto& [name, link] : linked_names_) {
    const auto anchor = anchors_.find(name);
    lines_.Append(EscapedString{name}, ' ',
                  DestinationText(anchor != anchors_.end() ? anchor->second : link));
  }
  lines_.Append("] >> >>");
}

}  // namespace vellumark::pdf
