// SPDX-License-Identifier: MIT
#include "tools/text_flow.h"

#include <algorithm>
#include <utility>

namespace vellumark::tools {
namespace {

constexpr int kBarThickness = 2;
constexpr std::size_t kMostBars = 8;  // deeper quotes have none

}  // namespace

TextFlow::Container TextFlow::Nested(Kind kind, int indent) const {
  Container container;
  container.kind = kind;
  container.left = std::min(left() + indent, pages_.width() / 2);
  return container;
}

void TextFlow::EnterQuote() {
  containers_.push_back(Nested(Kind::Quote, IndentOfALevel(style_.size)));
  // The bar begins with the first block, which sets this.
  containers_.back().bar_top = -1;
}

std::string TextFlow::NumberText(const ListLook& look, int number) const {
  return std::to_string(number) + look.delimiter;
}

int TextFlow::WidthOf(const std::string& text) {
  return ToPoints(measure_.Width(style_.TextFaces().text, text));
}

void TextFlow::EnterList(const ListLook& look) {
  int indent = IndentOfALevel(style_.size);
  if (look.ordered) {
    const int widest = std::max(WidthOf(NumberText(look, look.first_number)),
                                WidthOf(NumberText(look, look.last_number)));
    indent = std::max(indent, widest + MarkerGap(style_.size));
  }
  containers_.push_back(Nested(Kind::List, indent));
  containers_.back().list = look;
  ++list_depth_;
}

void TextFlow::EnterItem(TaskBox box) {
  Marker marker{box, {}, std::max(left() - MarkerGap(style_.size), 0)};
  const Container item = Nested(Kind::Item, 0);
  if (!containers_.empty() && containers_.back().kind == Kind::List) {
    ListLook& list = containers_.back().list;
    const std::string_view bullet = list_depth_ % 2 == 1 ? "•" : "–";
    marker.text = list.ordered ? NumberText(list, list.first_number++) : bullet;
  }
  containers_.push_back(item);
  // Items that are too deep to be moved to the right would have their markers at the same place.
  const bool apart = markers_.empty() || markers_.back().right != marker.right;
  if (apart) markers_.push_back(std::move(marker));
}

void TextFlow::Leave() {
  if (containers_.back().kind == Kind::Item && !containers_.back().has_content) {
    const int pitch = LinePitch(style_.size);
    BeginBlock(SpaceOfParagraph());
    Make(pitch);
    WriteMarker();
    pages_.Advance(pitch);
    EndBlock(0);
  }
  const Container& left = containers_.back();
  if (left.kind == Kind::List) --list_depth_;
  if (left.kind == Kind::Quote && left.bar_top >= 0) DrawBar(left);
  containers_.pop_back();
}

int TextFlow::SpaceOfParagraph() const {
  // The innermost container that has content decides, because the block follows a block in there.
  // In an item, and between two of them, this is the list.
  const auto decides = std::find_if(
      containers_.rbegin(), containers_.rend(),
      [](const Container& each) { return each.has_content && each.kind != Kind::Item; });
  const bool tight =
      decides != containers_.rend() && decides->kind == Kind::List && decides->list.tight;
  return tight ? ListItemSpace(style_.size) : ParagraphSpace(style_.size);
}

void TextFlow::NoteContent() {
  for (std::size_t i = containers_.size(); i-- > 0 && !containers_[i].has_content;) {
    containers_[i].has_content = true;
    if (containers_[i].kind == Kind::Quote) containers_[i].bar_top = pages_.y();
  }
}

void TextFlow::BeginBlock(int above) {
  if (!pages_.AtTop()) pages_.Advance(std::max(above, space_after_));
  space_after_ = 0;
  NoteContent();
}

void TextFlow::Make(int height) {
  if (!pages_.Fits(height) && !pages_.AtTop()) NewPage();
}

void TextFlow::NewPage() {
  for (std::size_t i = 0; i < std::min(containers_.size(), kMostBars); ++i) {
    Container& container = containers_[i];
    if (container.kind != Kind::Quote || container.bar_top < 0) continue;
    DrawBar(container);
    container.bar_top = 0;
  }
  pages_.NewPage();
}

void TextFlow::DrawBar(const Container& quote) {
  const auto depth = static_cast<std::size_t>(&quote - containers_.data());
  const int bottom = std::min(pages_.y(), pages_.height());
  if (depth >= kMostBars || bottom <= quote.bar_top) return;
  const int x = std::max(quote.left - IndentOfALevel(style_.size) / 2, 0);
  const int top = quote.bar_top - pages_.y();
  pages_.DrawLine({x, top}, {x, bottom - pages_.y()}, kBarThickness, kThinRuleColor);
}

void TextFlow::WriteAnchors() {
  for (const std::string& name : anchors_) pages_.SetAnchor(name);
  anchors_.clear();
}

void TextFlow::WriteMarker() {
  WriteAnchors();
  for (const Marker& marker : markers_) {
    if (marker.box != TaskBox::None) {
      DrawBox(marker.box, marker.right);
      continue;
    }
    const int x = std::max(marker.right - WidthOf(marker.text), 0);
    pages_.WriteLine({{{x, style_.TextFaces().text, marker.text, 0, false}}}, {}, 0, style_.size);
  }
  markers_.clear();
}

/// The box of a task, as high as a capital letter, on the base line.
void TextFlow::DrawBox(TaskBox box, int right) {
  const int side = std::max(style_.size * 13 / 20, 4);
  const int left = std::max(right - side, 0);
  const int bottom = style_.size;
  const int top = bottom - side;
  const Rgb black{0, 0, 0};
  pages_.DrawLine({left, top}, {left + side, top}, 1, black);
  pages_.DrawLine({left + side, top}, {left + side, bottom}, 1, black);
  pages_.DrawLine({left + side, bottom}, {left, bottom}, 1, black);
  pages_.DrawLine({left, bottom}, {left, top}, 1, black);
  if (box != TaskBox::Checked) return;
  const Point corner{left + side * 2 / 5, bottom - side / 5};
  pages_.DrawLine({left + side / 5, bottom - side / 2}, corner, 1, black);
  pages_.DrawLine(corner, {left + side * 4 / 5, top + side / 5}, 1, black);
}

}  // namespace vellumark::tools
