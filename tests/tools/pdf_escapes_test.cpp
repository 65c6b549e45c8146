// SPDX-License-Identifier: MIT
#include "tools/classic/pdf_escapes.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

TEST(PdfEscapes, PageTextDoublesBackslashesAndLeavesParenthesesToTheWriter) {
  EXPECT_EQ(EscapePdfPageText(R"(a\b(c))"), R"(a\\b(c))");
  EXPECT_EQ(EscapePdfPageText("\xD0"), "\u00D0");
}

TEST(PdfEscapes, AsciiPropertiesStayReadable) {
  EXPECT_EQ(EscapePdfProperty(R"(f(x) \ y)"), R"(f\(x\) \\ y)");
  EXPECT_EQ(EscapePdfProperty("a\nb"), R"(a\012b)");
}

TEST(PdfEscapes, OtherPropertiesAreUtf16WithAByteOrderMark) {
  EXPECT_EQ(EscapePdfProperty("é("), R"(\376\377\000\351\000\050)");
  EXPECT_EQ(EscapePdfProperty("\U0001F600"), R"(\376\377\330\075\336\000)");
}

TEST(PdfEscapes, LinksAreEncodedOnceAndOnlyWhereTheyMustBe) {
  EXPECT_EQ(EscapePdfLink("https://a.b/c?d=e&f#g~h"), "https://a.b/c?d=e&f#g~h");
  EXPECT_EQ(EscapePdfLink("a b(c)\"\\<>é"), "a%20b%28c%29%22%5C%3C%3E%C3%A9");
  EXPECT_EQ(EscapePdfLink("a%20b%zz%4"), "a%20b%25zz%254");
}

}  // namespace
}  // namespace vellumark::tools
