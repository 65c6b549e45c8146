// SPDX-License-Identifier: MIT
#include "tools/markdown_tree.h"

#include <array>
#include <utility>

#include "tools/markdown_parser.h"

namespace vellumark::tools {
namespace {

/// The kinds that extensions add have no number in the parser's headers, only a name.
NodeKind KindOfExtension(cmark_node* node) {
  constexpr std::array<std::pair<std::string_view, NodeKind>, 6> kNames = {{
      {"table_cell", NodeKind::TableCell},
      {"table_row", NodeKind::TableRow},
      {"table_header", NodeKind::TableRow},
      {"table", NodeKind::Table},
      {"strikethrough", NodeKind::Strikethrough},
      {"tasklist", NodeKind::TaskItem},
  }};
  const std::string_view name = cmark_node_get_type_string(node);
  for (const auto& [known, kind] : kNames) {
    if (name == known) return kind;
  }
  return NodeKind::Other;
}

}  // namespace

NodeKind KindOf(cmark_node* node) {
  switch (cmark_node_get_type(node)) {
    case CMARK_NODE_DOCUMENT: return NodeKind::Document;
    case CMARK_NODE_BLOCK_QUOTE: return NodeKind::BlockQuote;
    case CMARK_NODE_LIST: return NodeKind::List;
    case CMARK_NODE_CODE_BLOCK: return NodeKind::CodeBlock;
    case CMARK_NODE_HTML_BLOCK: return NodeKind::HtmlBlock;
    case CMARK_NODE_PARAGRAPH: return NodeKind::Paragraph;
    case CMARK_NODE_HEADING: return NodeKind::Heading;
    case CMARK_NODE_THEMATIC_BREAK: return NodeKind::Rule;
    case CMARK_NODE_TEXT: return NodeKind::Text;
    case CMARK_NODE_SOFTBREAK: return NodeKind::SoftBreak;
    case CMARK_NODE_LINEBREAK: return NodeKind::LineBreak;
    case CMARK_NODE_CODE: return NodeKind::Code;
    case CMARK_NODE_HTML_INLINE: return NodeKind::HtmlInline;
    case CMARK_NODE_EMPH: return NodeKind::Emphasis;
    case CMARK_NODE_STRONG: return NodeKind::Strong;
    case CMARK_NODE_LINK: return NodeKind::Link;
    case CMARK_NODE_IMAGE: return NodeKind::Image;
    // A task is an item whose type string differs.
    case CMARK_NODE_ITEM:
      return KindOfExtension(node) == NodeKind::TaskItem ? NodeKind::TaskItem : NodeKind::Item;
    default: return KindOfExtension(node);
  }
}

std::string_view LiteralOf(cmark_node* node) {
  const char* const text = cmark_node_get_literal(node);
  return text != nullptr ? text : "";
}

std::string_view AddressOf(cmark_node* node) {
  const char* const address = cmark_node_get_url(node);
  return address != nullptr ? address : "";
}

SourcePosition StartOf(cmark_node* node) {
  const auto number = [](int value) { return static_cast<std::size_t>(value > 0 ? value : 1); };
  return {number(cmark_node_get_start_line(node)), number(cmark_node_get_start_column(node))};
}

MarkdownTree::MarkdownTree(std::string_view text, std::size_t first_line,
                           std::string_view definitions) {
  MarkdownParser parser;
  if (!definitions.empty()) {
    parser.Feed(definitions);
    parser.Feed("\n");
  }
  parser.CountFrom(first_line - 1);
  parser.Feed(text);
  root_.reset(parser.Finish());
}

}  // namespace vellumark::tools
