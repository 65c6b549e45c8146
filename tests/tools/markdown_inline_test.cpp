// SPDX-License-Identifier: MIT
#include "tools/markdown_inline.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

/// The spans with their looks: b(old), i(talic), c(ode) and the address.
std::string Looks(std::string_view text) {
  std::string looks;
  const InlineText parsed = ParseInline(text);
  for (const Span& span : parsed.spans) {
    std::string look;
    if (span.bold) look += 'b';
    if (span.italic) look += 'i';
    if (span.code) look += 'c';
    if (span.link != 0) look.append("=").append(parsed.links[span.link - 1]);
    if (!look.empty()) looks.append("{").append(look).append(":");
    looks += span.text;
    if (!look.empty()) looks += '}';
  }
  return looks;
}

TEST(MarkdownInline, EmphasisNests) {
  EXPECT_EQ(Looks("a *b **c** d* e"), "a {i:b }{bi:c}{i: d} e");
  EXPECT_EQ(Looks("***both*** and __b__ _i_"), "{bi:both} and {b:b} {i:i}");
}

TEST(MarkdownInline, MarksWithoutCounterpartArePlain) {
  EXPECT_EQ(Looks("2 * 3 * 4, *a, b* and **"), "2 * 3 * 4, {i:a, b} and **");
  EXPECT_EQ(Looks("*a **b*"), "{i:a }{i:**}{i:b}");
  EXPECT_EQ(Looks("snake_case_name ****x****"), "snake_case_name ****x****");
}

TEST(MarkdownInline, CodeHidesEverythingElse) {
  EXPECT_EQ(Looks("`*a* [b](c)` *d*"), "{c:*a* [b](c)} {i:d}");
  EXPECT_EQ(Looks("`` a`b `` and ` alone"), "{c:a`b} and ` alone");
}

TEST(MarkdownInline, LinksHaveAddressesAndLookedLabels) {
  EXPECT_EQ(Looks("[a *b*](http://c.d/e(f)) g"), "{=http://c.d/e(f):a }{i=http://c.d/e(f):b} g");
  EXPECT_EQ(Looks("[a](<b c> \"title\") [d](e 'f')"), "{=b c:a} {=e:d}");
  EXPECT_EQ(Looks("x[0](a b) [c] [d](e"), "x[0](a b) [c] [d](e");
  EXPECT_EQ(Looks("[a](http://b/c d)"), "{=http://b/c d:a}");
}

TEST(MarkdownInline, BareAddressesEndBeforePunctuation) {
  EXPECT_EQ(Looks("(see https://a.b/c_(d), or http://e.f)."),
            "(see {=https://a.b/c_(d):https://a.b/c_(d)}, or {=http://e.f:http://e.f}).");
  EXPECT_EQ(Looks("mailto:x@y.z xhttp://no http://"),
            "{=mailto:x@y.z:mailto:x@y.z} xhttp://no http://");
  EXPECT_EQ(Looks("<joe@a.org> <https://b.c> <b>"),
            "{=mailto:joe@a.org:joe@a.org} {=https://b.c:https://b.c} <b>");
}

TEST(MarkdownInline, AnImageIsItsText) {
  EXPECT_EQ(Looks("![alt](x.png)!"), "{i:alt}!");
  EXPECT_EQ(Looks("[![badge](x.svg)](y)"), "{i=y:badge}");
}

TEST(MarkdownInline, ABackslashMakesMarksPlainAndIsOneOtherwise) {
  EXPECT_EQ(Looks(R"(\*a\* \`b\` \[c](d) C:\path\(x))"), R"(*a* `b` [c](d) C:\path\(x))");
}

}  // namespace
}  // namespace vellumark::tools
