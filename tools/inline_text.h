// SPDX-License-Identifier: MIT
//
// InlineText: what a paragraph, a title or a table cell consists of.
//
//     const InlineText text = ReadInlines(paragraph);
//     for (const Span& span : text.spans) Use(span, span.link == 0 ? "" : text.links[span.link -
//     1]);
//
// A picture between other text is represented by its alternative text in italics, as a link to the
// picture if it is a remote one. A paragraph of nothing but pictures can be drawn: see
// only_pictures.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "tools/html_text.h"
#include "tools/markdown_tree.h"

namespace vellumark::tools {

/// Text of one look. "\n" is a line that ends there.
struct Span {
  std::string_view text = {};
  bool bold = false;
  bool italic = false;
  bool code = false;
  bool struck = false;
  std::size_t link = 0;  ///< number of its address, counted from 1; 0 for none
  SourcePosition position = {};
};

struct InlinePicture {
  std::string file;
  std::size_t link = 0;  ///< number of the address around it; 0 for none
  std::size_t span = 0;  ///< the span that represents it
  SourcePosition position;
};

/// Elements of raw HTML that were left out.
struct OmittedHtml {
  std::size_t count = 0;
  std::string first;  ///< the name of the first one
  SourcePosition position;

  void Add(const OmittedHtml& other);
};

struct InlineText {
  InlineText() = default;
  InlineText(InlineText&&) = default;
  InlineText& operator=(InlineText&&) = default;
  InlineText(const InlineText&) = delete;  // the spans point into `owned`
  InlineText& operator=(const InlineText&) = delete;
  ~InlineText() = default;

  std::vector<Span> spans;
  std::vector<std::string> links;
  std::vector<InlinePicture> pictures;
  bool only_pictures = true;         ///< there is no text besides blanks
  std::vector<std::string> anchors;  ///< names of places in it
  OmittedHtml omitted;
  std::deque<std::string> owned;  ///< texts of spans that are not in the tree

  /// Makes what has the link plain text, and a remote picture in it a link to the picture.
  void RemoveLink(std::size_t number);
};

/// The inlines of a block, which must outlive the result.
[[nodiscard]] InlineText ReadInlines(cmark_node* block);

/// The paragraphs in a block of raw HTML that begins at `position`.
[[nodiscard]] std::vector<InlineText> ReadHtmlBlock(std::string_view html, SourcePosition position);

/// The text without its looks, on one line.
[[nodiscard]] std::string PlainText(const InlineText& text);

/// Whether a picture is not a file here but is named by an address, such as https://...
[[nodiscard]] bool IsRemote(std::string_view file);

}  // namespace vellumark::tools
