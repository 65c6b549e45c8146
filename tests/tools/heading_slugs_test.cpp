// SPDX-License-Identifier: MIT
#include "tools/heading_slugs.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

TEST(HeadingSlugs, AreThoseOfGitHub) {
  HeadingSlugs slugs;
  EXPECT_EQ(slugs.Next("It's new in C++20?"), "its-new-in-c20");
  EXPECT_EQ(slugs.Next("a - b_c  d"), "a---b_c--d");
  EXPECT_EQ(slugs.Next("Über ÉTÉ Straße ΣΑΣ Привет 日本語"), "über-été-straße-σασ-привет-日本語");
  EXPECT_EQ(slugs.Next("🚀 Start ½ ①"), "-start--");
  EXPECT_EQ(slugs.Next("e\u0301 \u202F\t—"), "e\u0301-");
}

TEST(HeadingSlugs, OfTheSameNameAreNumberedAndStayApart) {
  HeadingSlugs slugs;
  for (const char* const name : {"a", "a-1", "a-2", "a-3"}) EXPECT_EQ(slugs.Next("A"), name);
  EXPECT_EQ(slugs.Next("A 1"), "a-1-1");
  EXPECT_EQ(slugs.Next("B 1"), "b-1");
  EXPECT_EQ(slugs.Next("B"), "b");
  EXPECT_EQ(slugs.Next("B"), "b-2");
  EXPECT_EQ(slugs.Next("?"), "");
  EXPECT_EQ(slugs.Next("!"), "-1");
}

}  // namespace
}  // namespace vellumark::tools
