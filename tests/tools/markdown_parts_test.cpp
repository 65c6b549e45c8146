// SPDX-License-Identifier: MIT
#include "tools/markdown_parts.h"

#include <gtest/gtest.h>
#include <sstream>

namespace vellumark::tools {
namespace {

/// Every node: its kind, where it begins, its text and its address.
void Describe(cmark_node* root, std::ostream& told) {
  for (NodeWalk walk(root); walk.Next();) {
    cmark_node* const node = walk.node();
    if (KindOf(node) == NodeKind::Document) continue;
    const SourcePosition place = StartOf(node);
    told << (walk.entering() ? '+' : '-') << static_cast<int>(KindOf(node)) << ' ' << place.line
         << ' ' << place.byte << ' ' << LiteralOf(node) << ' ' << AddressOf(node) << '\n';
  }
}

/// Returns how many parts the text has, whose trees must be those of the whole text.
std::size_t PartsOf(const std::string& text, std::size_t part_size = 1) {
  const MarkdownParts parts(text, part_size);
  std::ostringstream in_parts;
  for (std::size_t i = 0; i < parts.Count(); ++i) Describe(parts.Tree(i, text)->root(), in_parts);
  std::ostringstream whole;
  Describe(MarkdownTree(text).root(), whole);
  EXPECT_EQ(in_parts.str(), whole.str()) << text;
  return parts.Count();
}

TEST(MarkdownParts, ATextIsDividedInFrontOfItsTitles) {
  EXPECT_EQ(PartsOf("a\n\n# b\n\nc\n\n## d\n\ne"), 3U);
  EXPECT_EQ(PartsOf("a\r\n\r\n# b\r\n\r\nc\r\n\r\n## d\r\n\r\ne"), 3U);
  EXPECT_EQ(PartsOf("a\n\n# b\n\nc\n\n# d\n\ne\n\n# f\n", 12), 2U) << "parts have a least size";
  EXPECT_EQ(PartsOf("# a\n\nb\n\n#c\n\n    # d\n\n#\n"), 2U) << "only the last is a title";
  EXPECT_EQ(PartsOf(""), 1U);
  EXPECT_EQ(PartsOf("\n\n# a\n\n# b"), 1U) << "titles stay with what is below";
}

TEST(MarkdownParts, WhatLooksLikeATitleInsideABlockDoesNotDivide) {
  for (const std::string block :
       {"```\n\n# no\n```\n", "~~~~\n\n# no\n\n```\n\n# no\n", "<!--\n\n# no\n-->\n",
        "<pre>\n\n# no\n</pre>\n", "<script>\n\n# no\n\n</script>\n\n",
        "> ```\n\n- a\n\n  ```\n\n  # in the item\n", "<?a\n\n# no\n?>\n",
        "<![CDATA[\n\n# no\n]]>\n"}) {
    EXPECT_EQ(PartsOf(block), 1U);
    std::string text = block;
    for (int i = 0; i < 2; ++i) text.append("\ntext\n\n# yes\n\n").append(block);
    PartsOf(text);
  }
  EXPECT_EQ(PartsOf("- a\n\n# b\n\n> c\n\n# d\n\n| e |\n|---|\n| f |\n\n# g\n\n1. h"), 4U);
}

TEST(MarkdownParts, DefinitionsOfLinksHoldInAllParts) {
  EXPECT_EQ(
      PartsOf("[a] [B\\]] [c]\n\n# [d]\n\n[a]: one\n[b\\]]: <two \\> three&#10;&amp;\\\\>\n\n"
              "text\n\n# e\n\n- > [C]: http://f?g='h'&i=%20# \"title\"\n\n[d]: ü\n[a]: last\n\n"
              "# [a][d] [c]\n\n[never] [ẞ]\n\n[SS]: sharp"),
      4U);
}

}  // namespace
}  // namespace vellumark::tools
