// SPDX-License-Identifier: MIT
#include "document/glyph_use.h"

#include <gtest/gtest.h>

#include "tests/stub_font.h"

namespace vellumark::document {
namespace {

TEST(GlyphUse, AGlyphMeansItsFirstTextHoweverLong) {
  layout::FontCollection fonts;
  const int number = fonts.Add(std::make_unique<tests::StubFace>(U"A"));
  for (const std::string first : {"A", "A\u0301", "A\u0301\u0301\u0301"}) {
    GlyphUse use(fonts);
    GlyphUse::Font& font = use.Of(number);
    EXPECT_TRUE(use.Means(font, 0, "\u200B"));
    for (const std::string_view any :
         {std::string_view(first), std::string_view("\xFF\xFF\xFF\xFF")}) {
      EXPECT_FALSE(use.Means(font, 0, any)) << "the glyph of no character";
    }
    const std::uint16_t code = use.CodeOf(font, 7);
    const std::size_t unknown = use.Here();
    for (int round = 0; round < 2; ++round) {
      EXPECT_TRUE(use.Means(font, code, "\u200B")) << "of nothing to see";
      EXPECT_EQ(use.Here(), unknown);
      EXPECT_TRUE(use.Means(font, code, first));
      EXPECT_TRUE(use.Means(font, code, first)) << "again";
      EXPECT_TRUE(use.Means(font, code, "\u200B" + first)) << "the same to who reads it";
      EXPECT_TRUE(use.Means(font, code, "\u200B"));
      EXPECT_FALSE(use.Means(font, code, "A\u0302"));
      EXPECT_EQ(font.texts[code], first);
      use.RollBack(unknown);
      EXPECT_EQ(font.texts[code], "");
    }
    use.RollBack(0);
    EXPECT_TRUE(use.Used().empty());
    EXPECT_EQ(font.code_of[7], 0);
  }
}

TEST(GlyphUse, PartsAreTheGlyphsOwnCharacters) {
  layout::FontCollection fonts;
  const int number = fonts.Add(std::make_unique<tests::StubFace>(U"ABC"));
  GlyphUse use(fonts);
  GlyphUse::Font& font = use.Of(number);
  const std::uint16_t second = use.CodeOf(font, 2);
  use.LearnPart(font, second, "AC");
  EXPECT_EQ(font.texts[second], "");
  use.LearnPart(font, second, "ABC");
  EXPECT_EQ(font.texts[second], "B");
}

}  // namespace
}  // namespace vellumark::document
