// SPDX-License-Identifier: MIT
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

using enum FontNumberConstants;

class Title : public PdfTest {};

TEST_F(Title, ADiscStandsInFrontOfTheText) {
  Start(0);
  Font(Helvetica, 16);
  doc.SetPosition(0, 100);
  EXPECT_TRUE(doc.WriteTitle("Title", kNoAlignment, BulletConstants::Disc, "http://a"));
  EXPECT_EQ(At(), (Position{0, 116}));
  const auto marks = MarksOfOnlyPage();
  ASSERT_EQ(marks.size(), 2U);
  EXPECT_EQ(marks[0].at(3), "0 731 m") << "center (2, 111), radius 2";
  EXPECT_EQ(marks[1].at(2), "1 0 0 1 15 726 Tm");
}

TEST_F(Title, ASquareIsFilledWithTheFillColorAndThePenIsPutBack) {
  Start(0);
  Font(Helvetica, 16);
  doc.SetDash("3 2");
  doc.SetFillColor(255, 0, 0);
  EXPECT_TRUE(doc.WriteTitle("Title", AlignmentConstants::RightAlign, BulletConstants::Square));
  EXPECT_EQ(doc.GetDash(), "3 2");
  EXPECT_FALSE(doc.GetFillStyle());
  // "Title" is 30 points wide, the bullet takes 15: x = 595 - 45.
  EXPECT_EQ(MarksOfOnlyPage().at(0), (Lines{"0 0 0 RG", "1 0 0 rg", "1 w", "550 829 4 4 re", "B"}));
}

TEST_F(Title, RefusesUnknownBulletsAndTextThatDoesNotFit) {
  Start();
  Font(Courier, 10);
  EXPECT_FALSE(doc.WriteTitle("x", kNoAlignment, static_cast<BulletConstants>(3)));
  EXPECT_EQ(Why(), RefusalReason::InvalidBullet);
  EXPECT_FALSE(doc.WriteTitle(std::string(82, 'x'))) << "492 points and the bullet's 9";
  EXPECT_EQ(Why(), RefusalReason::TitleTooWide);
  EXPECT_TRUE(doc.WriteTitle(std::string(81, 'x')));
  EXPECT_EQ(MarksOfOnlyPage().size(), 2U) << "a refusal writes nothing";
}

class Paragraph : public PdfTest {
 protected:
  /// What each stream shows: "x y (text)", page coordinates.
  static Lines Shown(const std::vector<Lines>& marks) {
    Lines shown;
    for (const Lines& mark : marks) {
      const std::string& matrix = mark.at(2);
      const std::string& text = mark.at(3);
      const std::size_t open = text.find('(');
      shown.push_back(matrix.substr(8, matrix.size() - 10) +
                      text.substr(open, text.rfind(')') - open + 1));
    }
    return shown;
  }
};

TEST_F(Paragraph, BreaksWhereAWordAndItsBlankNoLongerFit) {
  Start(0);
  Font(Courier, 10);
  EXPECT_TRUE(doc.WriteMultiText("aaa bbb  cc d", 2, kNoAlignment, false, 48));
  EXPECT_EQ(Shown(MarksOfOnlyPage()), (Lines{"0 832 (aaa bbb)", "0 820 ( cc d )"}))
      << "the empty word goes to the next line; only the last line keeps its trailing blank";
  Start(0);
  Font(Courier, 10);
  EXPECT_TRUE(doc.WriteMultiText("aaa bbb ccc ddd eee", 0, kNoAlignment, false, 48));
  EXPECT_EQ(Shown(MarksOfOnlyPage()),
            (Lines{"0 832 (aaa bbb)", "0 822 (ccc ddd)", "0 812 (eee )"}));
}

TEST_F(Paragraph, AWordThatFillsTheLineExactlyLeavesAnEmptyLineBeforeIt) {
  Start(0);
  Font(Courier, 10);
  EXPECT_TRUE(doc.WriteMultiText("aaaaa b", 0, kNoAlignment, false, 30));
  EXPECT_EQ(Shown(MarksOfOnlyPage()), (Lines{"0 832 ()", "0 822 (aaaaa)", "0 812 (b )"}));
}

TEST_F(Paragraph, JustifiedLinesEndAtTheRightEdgeToThePoint) {
  Start(0);
  Font(Courier, 10);
  doc.SetPosition(100, 0);
  // "aa bb cc" is 48 points wide; of the 7 to spare each gap gets 3, the first one more.
  EXPECT_TRUE(doc.WriteMultiText("aa bb cc dddd", 0, kNoAlignment, true, 55));
  const Lines shown = Shown(MarksOfOnlyPage());
  // "cc" is 12 points wide: it starts at 143 and ends at 155, 55 points from the line's start.
  EXPECT_EQ(shown, (Lines{"100 832 (aa )", "122 832 (bb )", "143 832 (cc)", "100 822 (dddd )"}));
}

TEST_F(Paragraph, IsRefusedWholeForOneWordTooWide) {
  Start(0);
  Font(Courier, 10);
  EXPECT_FALSE(doc.WriteMultiText("aa bb aaaaaaaa", 0, kNoAlignment, false, 35));
  EXPECT_EQ(doc.LastRefusal().sentence, "a word is 48 points wide, but a line has only 35 points");
  EXPECT_FALSE(doc.WriteMultiText("a", 0, kNoAlignment, false, 1));
  EXPECT_FALSE(doc.WriteMultiText("a", 0, AlignmentConstants::Center, false, 1));
  EXPECT_TRUE(MarksOfOnlyPage().empty());
}

TEST_F(Paragraph, AWordFitsAColumnOfItsOwnWidthAndNoneThatIsNarrower) {
  for (const bool conforming : {false, true}) {
    doc.Conforming(conforming);
    Start(0);
    std::uint32_t random = 1;
    for (int round = 0; round < 200; ++round) {
      random = random * 1664525 + 1013904223;
      Font(Times, static_cast<std::uint8_t>(20 + (random >> 24) % 50));
      const std::string word = {static_cast<char>('a' + (random >> 8) % 26),
                                static_cast<char>('a' + (random >> 16) % 26)};
      const auto width = static_cast<std::int16_t>(doc.TextWidth(word));
      doc.SetPosition(0, 0);
      EXPECT_TRUE(doc.WriteMultiText(word, 0, kNoAlignment, false, width)) << word;
      doc.SetPosition(0, 0);
      EXPECT_FALSE(
          doc.WriteMultiText(word, 0, kNoAlignment, false, static_cast<std::int16_t>(width - 1)))
          << word;
      EXPECT_EQ(Why(), RefusalReason::WordTooWide) << word;
    }
    doc.Flush();
  }
}

TEST_F(Paragraph, OnAPageLowerThanItsFontEveryLineStartsAPage) {
  ASSERT_TRUE(doc.Create("doc"));
  doc.NewPage(0, 400, 0, 420, 255, 255, 255);  // 22 points
  Font(Courier, 40);
  EXPECT_TRUE(doc.WriteMultiText("aa bb cc", 0, kNoAlignment, false, 80));
  EXPECT_TRUE(Has(FlushedLines(), "/Count 4"));
}

TEST_F(Paragraph, ALineEndOfTwoCharactersIsOneBlank) {
  doc.Conforming(true);
  const auto file_of = [&](std::string_view text) {
    Start(0);
    EXPECT_TRUE(doc.WriteMultiText(text));
    doc.Flush();
    return *memory->File("doc");
  };
  const std::string file = file_of("one two  three ");
  EXPECT_EQ(file_of("one\r\ntwo\r\rthree\n"), file);
  EXPECT_EQ(file_of("one\ttwo\n\nthree\r"), file);
  EXPECT_EQ(file_of("   "), file_of(" ")) << "those at the end are not shown";
}

TEST_F(Paragraph, SpacesThatKeepWordsTogetherDoNotEndALine) {
  doc.Conforming(true);
  Start(0);
  const auto fits = [&](FontNumberConstants font, std::string_view blank) {
    Font(font, 10);
    const std::string text = "1234" + std::string(blank) + "5678";
    return doc.WriteMultiText(text, 0, kNoAlignment, false, 45);
  };
  for (const char* const blank : {"\u2003", "\u0085", "\t"}) EXPECT_TRUE(fits(Courier, blank));
  for (const char* const blank : {"\u2007", "\u202F"}) EXPECT_FALSE(fits(Courier, blank)) << blank;
  EXPECT_TRUE(fits(FontNumberConstants::ZapfDingbats, " "));
  EXPECT_FALSE(fits(FontNumberConstants::ZapfDingbats, "\u0085")) << "a sign of this font";
}

TEST_F(Paragraph, AnAlignmentMovesTheColumn) {
  Start(0);
  Font(Courier, 10);
  EXPECT_FALSE(doc.WriteMultiText("a", 0, kNoAlignment, false, 596));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "lines would be 596 points wide, but only 595 points are free up to the right margin");
  EXPECT_FALSE(doc.WriteMultiText("a", 0, AlignmentConstants::Center, false, 596));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "lines would be 596 points wide, but only 595 points are free up to the right margin");
  EXPECT_FALSE(doc.WriteMultiText("a", 0, static_cast<AlignmentConstants>(4)));
  EXPECT_FALSE(doc.WriteMultiText(std::string(9, 'x'), 0, AlignmentConstants::Center, false, 45));
  EXPECT_EQ(At().x, 275) << "set before the word was refused, and kept";
  EXPECT_TRUE(doc.WriteMultiText("", 3, AlignmentConstants::RightAlign, true, 45));
  EXPECT_EQ(At(), (Position{0, 13}));
  EXPECT_EQ(Shown(MarksOfOnlyPage()), (Lines{"550 832 ( )"}));
}

TEST_F(Paragraph, ContinuesOnNewPagesOfTheSameKind) {
  ASSERT_TRUE(doc.Create("doc"));
  doc.NewPage(100, 400, 100, 400, 255, 0, 128);  // 42 points high: four lines
  Font(Courier, 10);
  std::string text;
  for (int i = 10; i < 19; ++i) text += std::to_string(i) + " ";
  EXPECT_TRUE(doc.WriteMultiText(text, 0, kNoAlignment, false, 18));
  EXPECT_EQ(At(), (Position{0, 20})) << "nine words and the last blank's line: 4 + 4 + 2";
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "1 0 0.502 rg"), 3);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "1 0 0 1 100 432 Tm"), 3);
  EXPECT_TRUE(Has(lines, "/Count 3"));
}

}  // namespace
}  // namespace vellumark::tests
