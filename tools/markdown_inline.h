// SPDX-License-Identifier: MIT
//
// Light Markdown, second step: the text of a title or paragraph is cut into spans of one look.
//
//     const InlineText text = ParseInline(block.text);
//     for (const Span& span : text.spans) Use(span, span.link == 0 ? "" : text.links[span.link -
//     1]);
//
// `code`, **bold**, *italic*, __bold__, _italic_ (not within words), [text](address), <address>,
// bare http, https and mailto addresses, and ![text](file), of which the text is set in italics.
// A backslash in front of one of * _ ` [ ] < > # makes it plain; before others it is a backslash.
// What has no counterpart is plain text. Time is linear: how far a link is looked for is bounded.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::tools {

struct Span {
  std::string_view text;  ///< a part of the text that was parsed
  bool bold = false;
  bool italic = false;
  bool code = false;
  std::size_t link = 0;  ///< number of its address, counted from 1; 0 for none
};

struct InlineText {
  std::vector<Span> spans;
  std::vector<std::string> links;
};

/// The spans point into `text`.
[[nodiscard]] InlineText ParseInline(std::string_view text);

/// The text without its marks.
[[nodiscard]] std::string PlainText(const InlineText& text);

}  // namespace vellumark::tools
