// SPDX-License-Identifier: MIT
#include "tools/markdown_parts.h"

#include <algorithm>

#include "tools/markdown_parser.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kPieceSize = std::size_t{16} << 10U;

/// Where the next title may begin, at `from` or behind it; the text's end if there is none.
std::size_t NextTitle(std::string_view text, std::size_t from) {
  for (std::size_t at = from; (at = text.find("\n#", at)) != std::string_view::npos; ++at) {
    const std::string_view before = text.substr(0, at);
    if (before.ends_with('\n') || before.ends_with("\n\r")) return at + 1;
  }
  return text.size();
}

/// Whether the block that was begun last is a title in that line in front of which a text can be
/// divided. What follows a title, or a comment below it, decides where the title may stand.
bool DividesAt(const MarkdownParser& parser, std::size_t line) {
  cmark_node* const title = parser.LastBlock();
  if (title == nullptr || KindOf(title) != NodeKind::Heading) return false;
  cmark_node* const before = cmark_node_previous(title);
  if (before == nullptr || StartOf(title).line != line) return false;
  return KindOf(before) != NodeKind::Heading && KindOf(before) != NodeKind::HtmlBlock;
}

}  // namespace

MarkdownParts::MarkdownParts(std::string_view text, std::size_t part_size) : parts_(1) {
  if (text.size() > part_size) Divide(text, part_size);
  if (parts_.size() == 1) only_ = std::make_shared<MarkdownTree>(text);
}

void MarkdownParts::Divide(std::string_view text, std::size_t part_size) {
  MarkdownParser parser;
  std::size_t fed = 0;
  const auto feed = [&](std::size_t end) {
    while (fed < end) {
      const std::size_t size = std::min(end - fed, kPieceSize);
      parser.Feed(text.substr(fed, size));
      parser.ForgetBlocks();
      fed += size;
    }
  };
  while (fed < text.size()) {
    const std::size_t title = NextTitle(text, std::max(fed, parts_.back().begin + part_size));
    feed(title);
    const std::size_t line = parser.Lines() + 1;
    feed(std::min(text.find('\n', title), text.size() - 1) + 1);
    if (title < text.size() && DividesAt(parser, line)) parts_.push_back({title, line});
  }
  parser.Feed("\n\n");  // which ends a paragraph, and with it its definitions
  if (parts_.size() > 1) definitions_ = parser.Definitions();
}

std::shared_ptr<const MarkdownTree> MarkdownParts::Tree(std::size_t number,
                                                        std::string_view text) const {
  if (only_) return only_;
  const Part& part = parts_[number];
  const bool last = number + 1 == parts_.size();
  const std::size_t end = last ? text.size() : parts_[number + 1].begin;
  return std::make_shared<MarkdownTree>(text.substr(part.begin, end - part.begin), part.line,
                                        definitions_);
}

}  // namespace vellumark::tools
