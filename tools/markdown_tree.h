// SPDX-License-Identifier: MIT
//
// MarkdownTree: a text in Markdown as the tree of nodes that the parser, cmark-gfm, makes of it.
//
//     const MarkdownTree tree(text);
//     for (NodeWalk walk(tree.root()); walk.Next();) {
//       if (walk.entering() && KindOf(walk.node()) == NodeKind::Table) ...
//     }
//
// The text is CommonMark with the extensions tables, strikethrough, task lists and addresses that
// are links without marks. Every text is valid; memory that runs out ends the program with status
// 2, because the parser cannot report it.
#pragma once

#include <cmark-gfm.h>
#include <memory>
#include <string_view>

#include "tools/source_place.h"

namespace vellumark::tools {

enum class NodeKind {
  // Blocks
  Document,
  BlockQuote,
  List,
  Item,
  TaskItem,
  CodeBlock,
  HtmlBlock,
  Paragraph,
  Heading,
  Rule,
  Table,
  TableRow,
  TableCell,
  // Inlines
  Text,
  SoftBreak,
  LineBreak,
  Code,
  HtmlInline,
  Emphasis,
  Strong,
  Strikethrough,
  Link,
  Image,
  Other
};

[[nodiscard]] NodeKind KindOf(cmark_node* node);

/// The text of a node, which lives as long as the node; empty if it has none.
[[nodiscard]] std::string_view LiteralOf(cmark_node* node);

/// The address of a link or image.
[[nodiscard]] std::string_view AddressOf(cmark_node* node);

/// Where a node begins in the input.
[[nodiscard]] SourcePosition StartOf(cmark_node* node);

class MarkdownTree {
 public:
  /// `first_line` is the number of the text's first line in a longer one, whose definitions of
  /// links hold in front of its own.
  explicit MarkdownTree(std::string_view text, std::size_t first_line = 1,
                        std::string_view definitions = {});

  [[nodiscard]] cmark_node* root() const { return root_.get(); }

 private:
  struct FreeNode {
    void operator()(cmark_node* node) const { cmark_node_free(node); }
  };
  std::unique_ptr<cmark_node, FreeNode> root_;
};

/// Visits a node and everything in it. A node that contains others is entered and left; any other
/// is only entered.
class NodeWalk {
 public:
  explicit NodeWalk(cmark_node* root) : iterator_(cmark_iter_new(root)) {}

  /// Goes to the next node; false at the end.
  bool Next() { return (event_ = cmark_iter_next(iterator_.get())) != CMARK_EVENT_DONE; }

  [[nodiscard]] cmark_node* node() const { return cmark_iter_get_node(iterator_.get()); }
  [[nodiscard]] bool entering() const { return event_ == CMARK_EVENT_ENTER; }

  /// Goes to the end of the node that was entered: what it contains is not visited.
  void Skip() { cmark_iter_reset(iterator_.get(), node(), CMARK_EVENT_EXIT); }

 private:
  struct FreeIterator {
    void operator()(cmark_iter* iterator) const { cmark_iter_free(iterator); }
  };
  std::unique_ptr<cmark_iter, FreeIterator> iterator_;
  cmark_event_type event_ = CMARK_EVENT_NONE;
};

}  // namespace vellumark::tools
