// SPDX-License-Identifier: MIT
//
// MarkdownParser: cmark-gfm's parser, with the extensions that a document has.
//
//     MarkdownParser parser;
//     parser.Feed(text);
//     cmark_node* root = parser.Finish();          // to be freed by the caller
//
// While a text is fed, its blocks are found; their contents are read in the end. What the parser
// knows before then, the blocks so far and the definitions of links, is in its own headers.
#pragma once

#include <cmark-gfm-extension_api.h>
#include <cmark-gfm.h>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace vellumark::tools {

class MarkdownParser {
 public:
  MarkdownParser();

  void Feed(std::string_view text) { cmark_parser_feed(parser_.get(), text.data(), text.size()); }

  /// The whole text as a tree. Nothing else may be called afterwards.
  [[nodiscard]] cmark_node* Finish() { return cmark_parser_finish(parser_.get()); }

  /// The lines that were fed.
  [[nodiscard]] std::size_t Lines() const {
    return static_cast<std::size_t>(cmark_parser_get_line_number(parser_.get()));
  }

  /// Goes on as if this many lines had been fed.
  void CountFrom(std::size_t lines);

  /// The block outside of all others that was begun last; null if there is none.
  [[nodiscard]] cmark_node* LastBlock() const;

  /// Frees the blocks in front of the last two.
  void ForgetBlocks();

  /// The definitions of links so far, each label once, as a text in Markdown.
  [[nodiscard]] std::string Definitions() const;

 private:
  struct Free {
    void operator()(cmark_parser* parser) const { cmark_parser_free(parser); }
  };
  std::unique_ptr<cmark_parser, Free> parser_;
};

}  // namespace vellumark::tools
