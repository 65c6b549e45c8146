// SPDX-License-Identifier: MIT
#include "tools/markdown_blocks.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

/// The blocks in a line each: kind, nesting, marker and text, with "/" for a line end.
std::string Outline(std::string_view text) {
  std::string outline;
  for (const Block& block : ParseBlocks(text)) {
    switch (block.kind) {
      case BlockKind::Title: outline.append("h").append(std::to_string(block.level)); break;
      case BlockKind::Paragraph: outline += "p"; break;
      case BlockKind::Code: outline += "code"; break;
      case BlockKind::Rule: outline += "rule"; break;
      case BlockKind::Picture:
        outline.append("picture<" + block.picture + "|" + block.picture_link + ">");
        break;
    }
    outline.append(block.quote_depth, '>').append(block.list_depth, '.');
    if (!block.marker.empty()) outline.append("[").append(block.marker).append("]");
    outline += ' ';
    for (const char c : block.text) outline += c == '\n' ? '/' : c;
    outline += '\n';
  }
  return outline;
}

TEST(MarkdownBlocks, TitlesHaveOneToSixMarksAndABlank) {
  EXPECT_EQ(Outline("# One\n###### Six ##\n####### Seven\n"), "h1 One\nh6 Six\np ####### Seven\n");
  EXPECT_EQ(Outline("#hashtag\n"), "p #hashtag\n");
  EXPECT_EQ(Outline("# C#\n"), "h1 C#\n");
}

TEST(MarkdownBlocks, ASingleUnderlinedLineIsATitle) {
  EXPECT_EQ(Outline("One\n===\nTwo\n---\n"), "h1 One\nh2 Two\n");
  EXPECT_EQ(Outline("a\nb\n---\n"), "p a b\nrule \n");
}

TEST(MarkdownBlocks, HardWrappedLinesAreJoined) {
  EXPECT_EQ(Outline("one\n  two\r\nthree\n\nfour"), "p one two three\np four\n");
}

TEST(MarkdownBlocks, TwoBlanksOrABackslashEndALine) {
  EXPECT_EQ(Outline("one  \ntwo\\\nthree"), "p one/two/three\n");
}

TEST(MarkdownBlocks, RulesNeedThreeMarksOfAKind) {
  EXPECT_EQ(Outline("---\n* * *\n\n___\n\n--\n\n*-*\n"), "rule \nrule \nrule \np --\np *-*\n");
}

TEST(MarkdownBlocks, ListItemsNestByIndent) {
  EXPECT_EQ(Outline("- a\n  - b\n    1. c\n- d\n  more\n\n  para\n\nend\n"),
            "p.[-] a\np..[-] b\np...[1.] c\np.[-] d more\np. para\np end\n");
  EXPECT_EQ(Outline("- - x\n-\n"), "p.[-] \np..[-] x\np.[-] \n");
}

TEST(MarkdownBlocks, OnlyANumberOneBeginsAListWithinAParagraph) {
  EXPECT_EQ(Outline("It was in\n1985. What a year\n"), "p It was in 1985. What a year\n");
  EXPECT_EQ(Outline("Steps:\n1. go\n2. stop\n"), "p Steps:\np.[1.] go\np.[2.] stop\n");
}

TEST(MarkdownBlocks, FencedCodeKeepsEverythingAsItIs) {
  EXPECT_EQ(Outline("~~~~ c\n# no\n\n~~~\n\tx\n~~~~\ny"), "code # no//~~~/    x/\np y\n");
  EXPECT_EQ(Outline("```\nnever closed"), "code never closed/\n");
  EXPECT_EQ(Outline("- a\n  ```\n  b\n    c\n  ```\n"), "p.[-] a\ncode. b/  c/\n");
}

TEST(MarkdownBlocks, IndentedCodeKeepsItsBlankLines) {
  EXPECT_EQ(Outline("    a\n\n      b\n\nc\n"), "code a//  b/\np c\n");
  EXPECT_EQ(Outline("a\n    b\n"), "p a b\n");
}

TEST(MarkdownBlocks, QuotesNestAndEnd) {
  EXPECT_EQ(Outline("> a\n> b\n>> c\n\nd\n"), "p> a b\np>> c\np d\n");
  EXPECT_EQ(Outline("> ```\n> x\nafter\n"), "code> x/\np after\n");
  EXPECT_EQ(Outline("> - \nafter\n"), "p>.[-] \np after\n");
}

TEST(MarkdownBlocks, TableRowsStayLinesOfTheirOwn) {
  EXPECT_EQ(Outline("| a |\n|---|\n| b |\n"), "p | a |/|---|/| b |\n");
}

TEST(MarkdownBlocks, APictureIsALineThatIsAParagraphOfItsOwn) {
  EXPECT_EQ(Outline("a\n\n![b](c.gif \"t\")  \n\nd\n"),
            "p a\npicture<c.gif|> ![b](c.gif \"t\")\np d\n");
  EXPECT_EQ(Outline("- [![b](<c d.jpg>)](http://x)\n"),
            "picture<c d.jpg|http://x>.[-] [![b](<c d.jpg>)](http://x)\n");
  for (const char* const text :
       {"a\n![b](c)", "![b](c)\na", "![b](c)\n![d](e)", "![b](c).", "![b\nd](c)", "\\![b](c)",
        "![b]()", "[b](c)", "![b]", "[![b](c) d](e)"}) {
    EXPECT_EQ(Outline(text).substr(0, 2), "p ") << text;
  }
}

TEST(MarkdownBlocks, APlaceIsFoundThroughMarksAndJoins) {
  const auto blocks = ParseBlocks("x\n\n> - één\n>   twee\n");
  ASSERT_EQ(blocks.size(), 2U);
  const Place place = blocks[1].PlaceOf(blocks[1].text.find("wee"));
  EXPECT_EQ(place.line, 4U);
  EXPECT_EQ(place.column, 6U);
  EXPECT_EQ(blocks[1].PlaceOf(blocks[1].text.find('n')).column, 7U);  // characters, not bytes
}

}  // namespace
}  // namespace vellumark::tools
