// SPDX-License-Identifier: MIT
#include "tools/markdown_tree.h"

#include <array>
#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm-extension_api.h>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vellumark::tools {
namespace {

/// The parser would call abort.
void* Checked(void* memory) {
  if (memory != nullptr) return memory;
  static_cast<void>(std::fputs("vellumark: out of memory\n", stderr));
  std::_Exit(2);
}

void* Allocate(std::size_t count, std::size_t size) { return Checked(std::calloc(count, size)); }
void* Reallocate(void* memory, std::size_t size) { return Checked(std::realloc(memory, size)); }

cmark_mem* Memory() {
  static cmark_mem memory = {&Allocate, &Reallocate, &std::free};
  return &memory;
}

struct FreeParser {
  void operator()(cmark_parser* parser) const { cmark_parser_free(parser); }
};

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

MarkdownTree::MarkdownTree(std::string_view text) {
  cmark_gfm_core_extensions_ensure_registered();
  const std::unique_ptr<cmark_parser, FreeParser> parser(
      cmark_parser_new_with_mem(CMARK_OPT_DEFAULT, Memory()));
  for (const char* const name : {"table", "strikethrough", "tasklist", "autolink"}) {
    cmark_parser_attach_syntax_extension(parser.get(), cmark_find_syntax_extension(name));
  }
  cmark_parser_feed(parser.get(), text.data(), text.size());
  root_.reset(cmark_parser_finish(parser.get()));
}

}  // namespace vellumark::tools
