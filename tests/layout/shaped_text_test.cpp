// SPDX-License-Identifier: MIT
#include "layout/shaped_text.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include <vellumark/run_time_error.h>

#include "layout/text_composer.h"
#include "tests/stub_font.h"

namespace vellumark::layout {
namespace {

constexpr int kHelvetica = static_cast<int>(FontNumberConstants::Helvetica);

class ShapedTextTest : public testing::Test {
 protected:
  // 101 has letters without marks, 102 and 103 have U+0301 too.
  ShapedTextTest() {
    fonts_.UseEngine(std::make_unique<tests::StubEngine>());
    fonts_.Add(std::make_unique<tests::StubFace>(U" abc1"));
    fonts_.Add(std::make_unique<tests::StubFace>(U" ab\u0431\u05D0\u05D1", U"\u0301\u0323"));
    fonts_.Add(std::make_unique<tests::StubFace>(U"ab\u0431\u0436", U"\u0301\u0323"));
    fonts_.AddFallback(102);
    fonts_.AddFallback(103);
  }

  /// "font:text" of each item, from the left.
  std::string ItemsOf(int font, std::string_view utf8) {
    text_.Analyze(utf8, {static_cast<FontNumberConstants>(font), 10}, fonts_);
    std::vector<TextItem> items;
    text_.ItemsOf(0, text_.Size(), items);
    std::string shown;
    for (const TextItem& item : items) {
      shown += shown.empty() ? "" : " ";
      shown += std::to_string(item.font) + ":";
      shown += text_.Utf8(item.begin, item.end);
    }
    return shown;
  }

  FontCollection fonts_;
  ShapedText text_;
};

TEST_F(ShapedTextTest, ACharacterIsShownByTheCurrentFontOrTheFirstThatHasItWithItsMarks) {
  struct Case {
    int font;
    const char* text;
    const char* items;
  };
  const Case cases[] = {
      {kHelvetica, "ab", "0:ab"},
      {kHelvetica, "a\u0431\u0436", "0:a 102:\u0431 103:\u0436"},
      {kHelvetica, "a\u0323c", "102:a\u0323 0:c"},
      {kHelvetica, "\u0431a\u0301\u200Bc", "102:\u0431 0:a\u0301\u200Bc"},
      {kHelvetica, "\u0436a\u0323", "103:\u0436 103:a\u0323"},  // as the letter before it
      {kHelvetica, "\u0436c\u0323", "103:\u0436 0:c\u0323"},    // which lacks this one
      {kHelvetica, "\u0436\u0431\u0301", "103:\u0436 102:\u0431\u0301"},
      {kHelvetica, "a\u0302", "0:a\u0302"},  // the mark that nobody has
      {kHelvetica, "\u0431\u0302", "102:\u0431\u0302"},
      {kHelvetica, "\u0416", "0:\u0416"},  // what nobody has
      {kHelvetica, "\u0436\u0416", "103:\u0436 0:\u0416"},
      {kHelvetica, "\u05D0-\u05D1", "102:\u05D1 0:- 102:\u05D0"},
      {kHelvetica, "a\u200D\u0431", "0:a\u200D\u0431"},  // joined
      {kHelvetica, "\u200D\u0431", "102:\u200D\u0431"},
      {kHelvetica, "\u200B\u00AD", "0:\u200B\u00AD"},
      {kHelvetica, "\u200B", "0:\u200B"},
      {101, "ab\u00A0", "101:ab -1:\u00A0"},
      {101, "ab\u2007", "101:ab\u2007"},
      {101, "a\u0431", "101:a 102:\u0431"},
      {101, "a\u0301", "102:a\u0301"},
      {101, "a\u0302", "101:a\u0302"},
      {101, "c\u0301", "101:c\u0301"},
      {101, "a\u0416\u0302", "101:a -1:\u0416\u0302"},
      {101, "a\u200Bc", "101:a\u200Bc"},
      {101, "\u200B\u200D", "101:\u200B\u200D"},
      {101, "a1c", "101:a 101:1 101:c"},  // of two scripts
      {kHelvetica, "a1c", "0:a1c"},
      {103, "a\u0431", "103:a 103:\u0431"},
  };
  for (const Case& c : cases) EXPECT_EQ(ItemsOf(c.font, c.text), c.items) << c.text;
}

TEST_F(ShapedTextTest, ItemsStandAsTheyAreSeen) {
  EXPECT_EQ(ItemsOf(102, "\u05D0 ab \u05D1"), "102:\u05D1 102:ab  102:\u05D0 ");
  EXPECT_TRUE(text_.RunsRightToLeft());
  EXPECT_EQ(ItemsOf(102, "ab \u05D0 "), "102:ab  102:\u05D0 102: ");
  EXPECT_FALSE(text_.RunsRightToLeft());
}

TEST_F(ShapedTextTest, PiecesEndWhereALineMay) {
  ItemsOf(101, "a  b c");
  text_.FindPieces(fonts_);
  std::string pieces;
  for (const TextPiece& piece : text_.Pieces()) {
    pieces += std::to_string(piece.begin) + "-" + std::to_string(piece.solid_end) + "-" +
              std::to_string(piece.end) + " ";
  }
  EXPECT_EQ(pieces, "0-1-2 2-2-3 3-4-5 5-6-6 ");
}

TEST(TextComposer, WidthsHave32Bits) {
  constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
  const auto width = [](std::initializer_list<std::int32_t> advances, std::int32_t gap) {
    EncodedText text;
    TextComposer composer(text);
    for (const std::int32_t advance : advances) {
      composer.BeginGlyphs(101, "a");
      composer.AddGlyphs(std::vector<PlacedGlyph>{{.id = 1, .text_size = 1, .advance = advance}},
                         0);
      composer.AddGlyphGap(gap);
      composer.EndGlyphs();
    }
    composer.Finish();
    return text.Width();
  };
  EXPECT_EQ(width({kMost}, 0), kMost);
  EXPECT_EQ(width({-kMost}, 0), -kMost);
  EXPECT_EQ(width({kMost - 5}, 5), kMost);
  EXPECT_EQ(width({kMost, -3}, 0), kMost - 3);
  EXPECT_THROW(width({kMost, 1}, 0), RunTimeError);
  EXPECT_THROW(width({-kMost, -1}, 0), RunTimeError);
}

}  // namespace
}  // namespace vellumark::layout
