// SPDX-License-Identifier: MIT
#include "tools/classic/glyph_codes.h"

#include <gtest/gtest.h>
#include <string_view>

namespace vellumark::tools {
namespace {

GlyphRun Glyphs(std::u32string_view text) {
  GlyphRun run;
  for (const char32_t character : text) AppendCharacter(character, run);
  return run;
}

TEST(GlyphCodes, PunctuationHasTheCodesOfTheStandardEncoding) {
  EXPECT_EQ(Glyphs(U"—–“”‘’'`•…").codes, "\xD0\xB1\xAA\xBA`'\xA9\xC1\xB7\xBC");
  EXPECT_EQ(Glyphs(U"†‡§¶£¥¢«»‹›„‚").codes, "\xB2\xB3\xA7\xB6\xA3\xA5\xA2\xAB\xBB\xAC\xAD\xB9\xB8");
  EXPECT_EQ(Glyphs(U"ßæÆœŒøØłŁıﬁﬂ").codes, "\xFB\xF1\xE1\xFA\xEA\xF9\xE9\xF8\xE8\xF5\xAE\xAF");
}

TEST(GlyphCodes, AsciiStandsForItselfButForTheQuotes) {
  for (char32_t c = 0x20; c < 0x7F; ++c) {
    if (c == U'\'' || c == U'`') continue;
    EXPECT_EQ(Glyphs({&c, 1}).codes, std::string(1, static_cast<char>(c)));
  }
}

TEST(GlyphCodes, AnAccentedLetterIsALetterAndAnAccent) {
  const GlyphRun run = Glyphs(U"aéÜ");
  EXPECT_EQ(run.codes, "aeU");
  ASSERT_EQ(run.marks.size(), 2U);
  EXPECT_EQ(run.marks[0].index, 1U);
  EXPECT_EQ(run.marks[0].accent, '\xC2');
  EXPECT_FALSE(run.marks[0].raised);
  EXPECT_EQ(run.marks[1].accent, '\xC8');
  EXPECT_TRUE(run.marks[1].raised);
}

TEST(GlyphCodes, AnIUnderAnAccentLosesItsDot) { EXPECT_EQ(Glyphs(U"ïi").codes, "\xF5i"); }

TEST(GlyphCodes, ADecomposedLetterEqualsTheComposedOne) {
  const GlyphRun run = Glyphs(U"e\u0301x");
  EXPECT_EQ(run.codes, "ex");
  ASSERT_EQ(run.marks.size(), 1U);
  EXPECT_EQ(run.marks[0].index, 0U);
}

TEST(GlyphCodes, KnownCharactersAreWrittenInOthers) {
  EXPECT_EQ(Glyphs(U"©™€×≤½").codes,
            "(c)(TM)EURx<=1\xA4"
            "2");
  EXPECT_EQ(Glyphs(U"a\u00A0b\u2060c").codes, "a bc");
}

TEST(GlyphCodes, WhatTheFontsLackBecomesAQuestionMark) {
  GlyphRun run;
  EXPECT_FALSE(AppendCharacter(U'日', run));
  EXPECT_FALSE(AppendCharacter(U'\u0001', run));
  EXPECT_FALSE(AppendCharacter(U'\U0001F600', run));
  EXPECT_EQ(run.codes, "???");
}

}  // namespace
}  // namespace vellumark::tools
