// SPDX-License-Identifier: MIT
//
// MarkdownParts: a text in Markdown as trees, part by part, because the parser's tree takes more
// than ten times the text's memory.
//
//     const MarkdownParts parts(text);
//     for (std::size_t i = 0; i < parts.Count(); ++i) {
//       const std::shared_ptr<const MarkdownTree> tree = parts.Tree(i, text);
//       ...                                    // the positions of its nodes are those in the text
//     }
//
// A text is divided in front of a title that no list, quotation or code is around, and that does
// not stand directly below another one. The definitions of links hold in all parts. A short text,
// and one without such titles, is one part, whose tree is kept; the trees of other parts are made
// when they are asked for.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/markdown_tree.h"

namespace vellumark::tools {

class MarkdownParts {
 public:
  static constexpr std::size_t kPartSize = std::size_t{32} << 10U;

  /// No part but the last is shorter than `part_size`, in bytes.
  explicit MarkdownParts(std::string_view text, std::size_t part_size = kPartSize);

  [[nodiscard]] std::size_t Count() const noexcept { return parts_.size(); }

  /// `text` is the one that the parts were found in.
  [[nodiscard]] std::shared_ptr<const MarkdownTree> Tree(std::size_t number,
                                                         std::string_view text) const;

 private:
  struct Part {
    std::size_t begin = 0;  ///< its first byte
    std::size_t line = 1;   ///< its first line
  };

  void Divide(std::string_view text, std::size_t part_size);

  std::vector<Part> parts_;
  std::string definitions_;  // of links, in all parts
  std::shared_ptr<const MarkdownTree> only_;
};

}  // namespace vellumark::tools
