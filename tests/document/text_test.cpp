// SPDX-License-Identifier: MIT
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

using enum AlignmentConstants;
using enum FontNumberConstants;

class Text : public PdfTest {
 protected:
  bool Aligned(int alignment, std::string_view text = "text") {
    return doc.WriteText(text, false, 0, static_cast<AlignmentConstants>(alignment));
  }
};

TEST_F(Text, IsWrittenAtItsBaselineInFontAndColor) {
  Start();
  Font(Helvetica, 12);
  doc.SetColor(255, 0, 128);
  doc.SetPosition(10, 20);
  EXPECT_TRUE(doc.WriteText("a(b)c"));
  EXPECT_EQ(MarksOfOnlyPage().at(0), (Lines{"BT", "/F4 12 Tf", "1 0 0 1 60 760 Tm",
                                            R"(T* 1 0 0.502 rg (a\(b\)c) Tj)", "ET"}));
}

TEST_F(Text, AdvancesByItsWidthOrGoesBackToTheLineStart) {
  Start();
  Font(Courier, 10);
  doc.SetPosition(30, 0);
  EXPECT_TRUE(doc.WriteText("12345"));
  EXPECT_EQ(At(), (Position{60, 0}));
  EXPECT_TRUE(doc.WriteText("12345", true, 4));
  EXPECT_EQ(At(), (Position{30, 14}));
  EXPECT_TRUE(doc.WriteText("ab", false, 4, RightAlign));
  EXPECT_EQ(At(), (Position{495, 14})) << "ends at the right margin; dy needs a carriage return";
  EXPECT_TRUE(doc.WriteText("", true));
  EXPECT_EQ(At(), (Position{30, 24})) << "alignment does not move the line start";
}

TEST_F(Text, MustFitBetweenPositionAndRightMargin) {
  Start();
  Font(Courier, 10);  // 6 points a character, 495 are usable
  const std::string full(82, 'x');
  doc.SetPosition(3, 0);
  EXPECT_TRUE(doc.WriteText(full));
  doc.SetPosition(4, 0);
  EXPECT_FALSE(doc.WriteText(full));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "text is 492 points wide, but only 491 points are free up to the right margin");
  EXPECT_EQ(At(), (Position{4, 0}));
  EXPECT_TRUE(Aligned(2, full)) << "an aligned text has the whole width, whatever x is";
  EXPECT_FALSE(Aligned(2, full + "x"));
}

TEST_F(Text, MustEndAboveTheBottomMargin) {
  Start();
  Font(Courier, 10);
  doc.SetPosition(0, 732);  // of 742
  EXPECT_TRUE(doc.WriteText("x"));
  doc.SetPosition(0, 733);
  EXPECT_FALSE(doc.WriteText("x"));
  EXPECT_EQ(Why(), RefusalReason::BeyondBottomMargin);
}

TEST_F(Text, RefusesAValueThatIsNotAnAlignment) {
  Start();
  for (const int alignment : {-1, 4, 5, 1000}) {
    EXPECT_FALSE(Aligned(alignment));
    EXPECT_EQ(Why(), RefusalReason::InvalidAlignment);
  }
  EXPECT_TRUE(Aligned(0));
  EXPECT_EQ(doc.LastRefusal().sentence, "") << "a success clears the reason";
}

TEST_F(Text, EffectsAreLinesBelowAndThrough) {
  Start(0);
  doc.SetPosition(0, 100);
  Font(Courier, 12, FontStyleConstants::Regular, FontEffectConstants::Underline);
  doc.WriteText("12345");  // 36 points
  Font(Courier, 12, FontStyleConstants::Regular, FontEffectConstants::Strikethrough);
  doc.WriteText("12345");
  const auto marks = MarksOfOnlyPage();
  ASSERT_EQ(marks.size(), 4U);
  EXPECT_EQ(marks[1], (Lines{"0 0 0 RG", "1 w", "0 729 m", "36 729 l", "S"}));
  EXPECT_EQ(marks[3], (Lines{"0 0 0 RG", "1 w", "36 733 m", "72 733 l", "S"}));
}

TEST_F(Text, AnEffectOutsideTheMarginsIsLeftOut) {
  Start(0);
  Font(Courier, 16, FontStyleConstants::Regular, FontEffectConstants::Underline);
  doc.SetPosition(0, 842 - 16);
  EXPECT_TRUE(doc.WriteText("at the very bottom"));
  EXPECT_EQ(MarksOfOnlyPage().size(), 1U);
}

TEST_F(Text, ALinkCoversItAndIsListedByItsPage) {
  Start();
  Font(Courier, 10);
  EXPECT_TRUE(doc.WriteText("12345", true, 0, kNoAlignment, "http://a/(b)"));
  EXPECT_TRUE(doc.WriteText("x", false, 0, kNoAlignment, "mailto:b"));
  const Lines lines = FlushedLines();
  const auto line = [&](std::string_view text) {
    return std::find(lines.begin(), lines.end(), text) - lines.begin();
  };
  const auto annotation = line("/Type /Annot");
  EXPECT_EQ(Lines(lines.begin() + annotation, lines.begin() + annotation + 7),
            (Lines{"/Type /Annot", "/Subtype /Link", "/A << /URI (http://a/(b)) /S /URI >>",
                   "/Border [0 0 0]", "/C [0 0 0]", "/Rect [50 792 82 780]", ">>"}));
  EXPECT_LT(line("/Annots [ 22 0 R 25 0 R ]"), static_cast<std::ptrdiff_t>(lines.size()));
}

TEST_F(Text, IsMeasuredAndWrittenAsBytesOfTheCodePage) {
  Start();
  Font(Helvetica, 10);
  // U+00E9 is byte E9, Oslash in the font (778); the euro byte 80 has no glyph (278); a character
  // beyond U+FFFF is one "?" (556).
  EXPECT_TRUE(doc.WriteText("é€𝄞"));
  EXPECT_EQ(At().x, 16);
  EXPECT_EQ(MarksOfOnlyPage().at(0).at(3), "T* 0 0 0 rg (\xE9\x80?) Tj");
}

}  // namespace
}  // namespace vellumark::tests
