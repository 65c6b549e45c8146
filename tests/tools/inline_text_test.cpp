// SPDX-License-Identifier: MIT
#include "tools/inline_text.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

/// The spans of the first paragraph: b, i, c, s for its looks, the address of its link, then the
/// text.
std::string Shown(const InlineText& text) {
  std::string shown;
  for (const Span& span : text.spans) {
    if (span.bold) shown += 'b';
    if (span.italic) shown += 'i';
    if (span.code) shown += 'c';
    if (span.struck) shown += 's';
    if (span.link != 0) shown += '<' + text.links[span.link - 1] + '>';
    shown += '(' + std::string(span.text) + ')';
  }
  return shown;
}

class Inlines : public ::testing::Test {
 protected:
  InlineText& Read(std::string_view markdown) {
    tree_.emplace(markdown);
    text_ = ReadInlines(cmark_node_first_child(tree_->root()));
    return text_;
  }

  std::optional<MarkdownTree> tree_;
  InlineText text_;
};

TEST_F(Inlines, LooksAreNestedAndEnd) {
  EXPECT_EQ(Shown(Read("**a *b* ~~c~~** `d` e")), "b(a )bi(b)b( )bs(c)( )c(d)( e)");
  EXPECT_EQ(Shown(Read("a\nb  \nc<br>d")), "(a)( )(b)(\n)(c)(\n)(d)");
}

TEST_F(Inlines, ReferencesAndAddressesAreLinks) {
  EXPECT_EQ(Shown(Read("[a][1] <b@c.d> [e](#f)\n\n[1]: http://x.y")),
            "<http://x.y>(a)( )<mailto:b@c.d>(b@c.d)( )<#f>(e)");
}

TEST_F(Inlines, APictureIsRepresentedByItsTextOrItsName) {
  EXPECT_EQ(Shown(Read("![a *b*](c.png) ![](d/e.png?f) x")), "i(a b)( )i(e.png)( x)");
  EXPECT_FALSE(text_.only_pictures);
  EXPECT_EQ(Shown(Read("[![a](http://b/c)](http://d) ![e](http://f/g)<img src=h>")),
            "i<http://d>(a)( )i<http://f/g>(e)i(h)");
  EXPECT_TRUE(text_.only_pictures);
  ASSERT_EQ(text_.pictures.size(), 3U);
  EXPECT_EQ(text_.links.at(text_.pictures[0].link - 1), "http://d");
  EXPECT_EQ(text_.pictures[2].file, "h");
  EXPECT_EQ(text_.pictures[2].position.byte, 46U);
}

TEST_F(Inlines, ALinkCanBeRemovedAndLeavesARemotePictureReachable) {
  Read("[a ![](http://b/c) ![](d)](#x) [e](#x)");
  text_.RemoveLink(1);
  EXPECT_EQ(Shown(text_), "(a )i<http://b/c>(c)( )i(d)( )<#x>(e)");
  EXPECT_EQ(text_.pictures[0].link + text_.pictures[1].link, 0U);
}

TEST_F(Inlines, OmittedElementsAreCountedAndCommentsAreNot) {
  EXPECT_EQ(Shown(Read("a <!-- x --> <kbd>b</kbd> <i>c</i>")), "(a )( )(b)( )(c)");
  EXPECT_EQ(text_.omitted.count, 2U);
  EXPECT_EQ(text_.omitted.first, "kbd");
  EXPECT_EQ(text_.omitted.position.byte, 14U);
}

TEST_F(Inlines, HtmlBlocksBecomeParagraphs) {
  const auto paragraphs = ReadHtmlBlock("<div>\n<h1>a</h1> b\n<img src=c></div>", {7, 1});
  std::string shown;
  for (const InlineText& paragraph : paragraphs) shown += PlainText(paragraph) + '|';
  EXPECT_EQ(shown, "| |a| b c|");
  EXPECT_EQ(paragraphs.back().pictures.at(0).position.line, 9U);
}

TEST(RemotePictures, HaveASchemeOrAHost) {
  for (const char* const remote : {"https://a.b/c", "//a/b", "data:image/png;base64,a"}) {
    EXPECT_TRUE(IsRemote(remote)) << remote;
  }
  for (const char* const local : {"a.png", "a/b:c", "c:/d.png", "/a", "", "./a:b"}) {
    EXPECT_FALSE(IsRemote(local)) << local;
  }
}

TEST(SourcePlaces, CountCharactersAndFindOneInItsLine) {
  const SourceText source("ab\r\n\xC3\xA9 &copy; \xE6\x97\xA5x\rlast");
  EXPECT_EQ(source.PlaceOf({2, 3}).column, 2U);
  EXPECT_EQ(source.PlaceOf({2, 3}, U'\u65E5').column, 10U);
  EXPECT_EQ(source.PlaceOf({2, 3}, U'\u65E6').column, 2U);
  EXPECT_EQ(source.PlaceOf({3, 2}, U't').column, 4U);
  EXPECT_EQ(source.PlaceOf({9, 9}).column, 1U);
}

}  // namespace
}  // namespace vellumark::tools
