// SPDX-License-Identifier: MIT
#include "tools/html_text.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

/// The pieces in short: text as it is, "/" a break, "|" a paragraph, [file:text], #anchor#,
/// <element>.
std::string Shown(std::string_view html) {
  std::string shown;
  for (const HtmlPiece& piece : ReadHtml(html)) {
    switch (piece.kind) {
      case HtmlPiece::Kind::Text: shown += piece.text; break;
      case HtmlPiece::Kind::Break: shown += '/'; break;
      case HtmlPiece::Kind::Paragraph: shown += '|'; break;
      case HtmlPiece::Kind::Picture: shown += '[' + piece.file + ':' + piece.text + ']'; break;
      case HtmlPiece::Kind::Anchor: shown += '#' + piece.text + '#'; break;
      case HtmlPiece::Kind::Element: shown += '<' + piece.text + '>'; break;
    }
  }
  return shown;
}

TEST(HtmlText, ElementsWithAnIdAreAnchors) {
  EXPECT_EQ(Shown("<a name=a></a><A ID='&lt;'>b<a href=c id=d>e</a>"), "#a##<#b<a>#d#e");
  EXPECT_EQ(Shown("<p id=a>b</p><input name=c><a id=>"), "<p>|#a#b|<input><a>");
}

TEST(HtmlText, TextBreaksAndPicturesAreKept) {
  EXPECT_EQ(Shown("<P>a &lt;&#98;&copy;<br/>c <B x=y>d</B></p>"), "<p>|a <b\xC2\xA9/c <b>d|");
  EXPECT_EQ(Shown("<img width=1 src='a &amp; \"b\"' ALT=\"c>d\"><img src=e>"),
            "[a & \"b\":c>d][e:]");
  EXPECT_EQ(Shown("<tr><td>a</td><td>b</td></tr>"), "<tr>|<td> a <td> b |");
}

TEST(HtmlText, CommentsAndScriptsAreNotText) {
  EXPECT_EQ(Shown("a<!-- <b> -- > -->b<!DOCTYPE x><?y?>c<![CDATA[>]]>d"), "abcd");
  EXPECT_EQ(Shown("a<script>if (b</c/) '</b>'</SCRIPT>d<style>e"), "a<script>d<style>");
  EXPECT_EQ(Shown("a<!-- b"), "a");
}

TEST(HtmlText, WhatIsNotATagIsText) {
  EXPECT_EQ(Shown("1 < 2 <3 </ > <"), "1 < 2 <3 </ > <");
  EXPECT_EQ(Shown("<a b='c> <p>d"), "<a b='c> <p>d");
  EXPECT_EQ(Shown("<a <b> &unknown; &"), "<a> &unknown; &");
}

TEST(HtmlText, PiecesKnowTheirLine) {
  const auto pieces = ReadHtml("<!--\n-->a\nb <img\nsrc=c>d");
  ASSERT_EQ(pieces.size(), 4U);
  EXPECT_EQ(pieces[0].line, 1U);
  EXPECT_EQ(pieces[1].line, 2U);
  EXPECT_EQ(pieces[2].file, "c");
  EXPECT_EQ(pieces[3].line, 3U);
}

}  // namespace
}  // namespace vellumark::tools
