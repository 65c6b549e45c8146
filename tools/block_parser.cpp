// SPDX-License-Identifier: MIT
#include "tools/block_parser.h"

#include <algorithm>
#include <utility>

#include "tools/inline_links.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kCodeIndent = 4;
constexpr std::size_t kItemsOnALine = 16;  // "- - - x" nests; beyond this it is text

/// Takes up to `most` quote marks off the line; `columns` grows by what they took.
std::size_t TakeQuoteMarks(std::string_view& line, std::size_t most, std::size_t& columns) {
  std::size_t depth = 0;
  while (depth < most) {
    const std::size_t mark = line.find_first_not_of(' ');
    if (mark >= kCodeIndent || line[mark] != '>') break;
    const std::size_t blank = mark + 1 < line.size() && line[mark + 1] == ' ' ? 1 : 0;
    line.remove_prefix(mark + 1 + blank);
    columns += mark + 1 + blank;
    ++depth;
  }
  return depth;
}

std::string_view TrimEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// A paragraph of one line may be a picture.
void TakePicture(Block& block) {
  if (block.kind != BlockKind::Paragraph || block.origins.size() != 1) return;
  auto picture = FindLonePicture(block.text);
  if (!picture) return;
  block.kind = BlockKind::Picture;
  block.picture = std::move(picture->file);
  block.picture_link = std::move(picture->link);
}

}  // namespace

void BlockParser::Line(std::string_view raw) {
  ++line_number_;
  if (raw.ends_with('\r')) raw.remove_suffix(1);
  const std::string expanded = ExpandTabs(raw);
  std::string_view line = expanded;
  quote_columns_ = 0;
  const bool in_fence = open_ == Open::Fence;
  const std::size_t most = in_fence ? quote_depth_ : line.size();
  const std::size_t depth = TakeQuoteMarks(line, most, quote_columns_);
  if (depth != quote_depth_) {
    EmptyItem();
    items_.clear();
    open_ = Open::None;
    quote_depth_ = depth;
  }
  if (open_ == Open::Fence && ContinueFence(line)) return;
  const std::size_t indent = line.find_first_not_of(' ');
  if (indent == std::string_view::npos) return Blank();
  if (ContinueParagraph(line, indent) || ContinueIndentedCode(line, indent)) return;
  Begin(line, indent);
}

std::vector<Block> BlockParser::Finish() {
  EmptyItem();
  for (Block& block : blocks_) TakePicture(block);
  return std::move(blocks_);
}

void BlockParser::Blank() {
  EmptyItem();
  if (open_ == Open::Paragraph) open_ = Open::None;
  if (open_ == Open::IndentedCode) ++skipped_blank_lines_;
  blank_before_ = true;
}

bool BlockParser::ContinueFence(std::string_view line) {
  const std::size_t indent = std::min(line.find_first_not_of(' '), line.size());
  if (indent < fence_indent_ + kCodeIndent) {
    const auto closing = AsFence(TrimEnd(line.substr(indent)));
    if (closing && closing->bare && closing->mark == fence_->mark &&
        closing->length >= fence_->length) {
      open_ = Open::None;
      return true;
    }
  }
  const std::size_t stripped = std::min(indent, fence_indent_);
  Append(line.substr(stripped), stripped);
  blocks_.back().text += '\n';
  return true;
}

/// A line right below a paragraph belongs to it, however it is indented, unless it begins another
/// block.
bool BlockParser::ContinueParagraph(std::string_view line, std::size_t indent) {
  if (open_ != Open::Paragraph) return false;
  const std::string_view content = TrimEnd(line.substr(indent));
  if (items_.empty() && TakeUnderline(content)) return true;
  const bool may_interrupt = indent < kCodeIndent || !items_.empty();
  if (may_interrupt && Interrupts(content)) return false;
  AppendParagraphLine(line.substr(indent), indent);
  return true;
}

bool BlockParser::ContinueIndentedCode(std::string_view line, std::size_t indent) {
  if (open_ != Open::IndentedCode) return false;
  const std::size_t base = (items_.empty() ? 0 : items_.back().content_column) + kCodeIndent;
  if (indent < base) {
    open_ = Open::None;
    return false;
  }
  blocks_.back().text.append(skipped_blank_lines_, '\n');
  skipped_blank_lines_ = 0;
  Append(line.substr(base), base);
  blocks_.back().text += '\n';
  blank_before_ = false;
  return true;
}

void BlockParser::Begin(std::string_view line, std::size_t indent) {
  open_ = Open::None;
  for (std::size_t nested = 0; nested < kItemsOnALine; ++nested) {
    const std::string_view content = TrimEnd(line.substr(indent));
    const std::optional<MarkerLine> item = AsMarker(content);
    const bool marker = item && !IsRule(content);
    if (nested == 0) CloseItems(indent, marker);
    const std::size_t base = items_.empty() ? 0 : std::min(items_.back().content_column, indent);
    const bool code = indent >= base + kCodeIndent && (items_.empty() || blank_before_ || !marker);
    if (code) {
      Add(BlockKind::Code);
      open_ = Open::IndentedCode;
      skipped_blank_lines_ = 0;
      Append(line.substr(base + kCodeIndent), base + kCodeIndent);
      blocks_.back().text += '\n';
      return;
    }
    if (!marker) return BeginLeaf(line.substr(indent), indent);
    indent = BeginItem(*item, indent);
    if (indent >= line.size()) return;
    indent = std::min(line.find_first_not_of(' ', indent), line.size());
    if (indent == line.size()) return;
  }
  BeginLeaf(line.substr(indent), indent);
}

/// Returns the column where the item's text starts.
std::size_t BlockParser::BeginItem(const MarkerLine& item, std::size_t column) {
  EmptyItem();
  marker_ = item.marker;
  const std::size_t content = column + std::max(item.content, item.marker.size() + 1);
  items_.push_back({column, content});
  return content;
}

/// Anything but a list item: a fence, a title, a rule or a paragraph.
void BlockParser::BeginLeaf(std::string_view line, std::size_t column) {
  const std::string_view content = TrimEnd(line);
  if (const auto fence = AsFence(content)) {
    Add(BlockKind::Code);
    open_ = Open::Fence;
    fence_ = fence;
    fence_indent_ = column;
  } else if (const auto title = AsTitle(content)) {
    Add(BlockKind::Title).level = title->level;
    Append(title->text, column + title->start);
  } else if (IsRule(content)) {
    Add(BlockKind::Rule);
  } else {
    Add(BlockKind::Paragraph);
    open_ = Open::Paragraph;
    AppendParagraphLine(line, column);
  }
}

/// Whether a line ends the paragraph above it without a blank line between. A number other than 1
/// does so within a list only: "1985. What a year" is a hard-wrapped sentence.
bool BlockParser::Interrupts(std::string_view line) const {
  if (AsTitle(line) || AsFence(line) || IsRule(line)) return true;
  const auto item = AsMarker(line);
  if (!item) return false;
  const bool first = !item->ordered() || item->marker.substr(0, item->marker.size() - 1) == "1";
  return (first && item->content < line.size()) || !items_.empty();
}

bool BlockParser::TakeUnderline(std::string_view line) {
  const int level = UnderlineLevel(line);
  Block& paragraph = blocks_.back();
  if (level == 0 || paragraph.origins.size() != 1) return false;
  paragraph.kind = BlockKind::Title;
  paragraph.level = level;
  open_ = Open::None;
  return true;
}

Block& BlockParser::Add(BlockKind kind) {
  Block& block = blocks_.emplace_back();
  block.kind = kind;
  block.quote_depth = quote_depth_;
  block.list_depth = items_.size();
  block.marker = std::exchange(marker_, {});
  block.blank_before = std::exchange(blank_before_, false);
  block.origins.push_back({0, {line_number_, 1}});
  return block;
}

/// Appends to the last block what stands at `column` of this line.
void BlockParser::Append(std::string_view text, std::size_t column) {
  Block& block = blocks_.back();
  const Block::Origin origin{block.text.size(), {line_number_, quote_columns_ + column + 1}};
  if (block.text.empty()) block.origins.clear();
  block.origins.push_back(origin);
  block.text += text;
}

void BlockParser::AppendParagraphLine(std::string_view text, std::size_t column) {
  std::string& paragraph = blocks_.back().text;
  if (!paragraph.empty()) paragraph += hard_break_ || text.starts_with('|') ? '\n' : ' ';
  std::string_view trimmed = TrimEnd(text);
  hard_break_ = text.size() >= trimmed.size() + 2;
  if (trimmed.size() > 1 && trimmed.ends_with('\\') && !trimmed.ends_with("\\\\")) {
    trimmed.remove_suffix(1);
    hard_break_ = true;
  }
  Append(trimmed, column);
}

/// Leaves the items that a line with this indent is not part of. Less indent than the item's text
/// has is enough for a nested item, as long as it stands two columns right of the marker.
void BlockParser::CloseItems(std::size_t indent, bool at_marker) {
  while (!items_.empty()) {
    const Item& item = items_.back();
    const std::size_t nested = item.marker_column + 2;
    const std::size_t inside = at_marker ? nested : std::min(item.content_column, nested);
    if (indent >= inside) return;
    EmptyItem();
    items_.pop_back();
  }
}

/// A marker with nothing behind it still shows.
void BlockParser::EmptyItem() {
  if (!marker_.empty()) Add(BlockKind::Paragraph);
}

}  // namespace vellumark::tools
