// SPDX-License-Identifier: MIT
//
// One test for each oddity of PostScript (document/oddities.h). What a conforming document does
// instead is in conforming_test.cpp.
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class PsOddities : public PsTest {};

TEST_F(PsOddities, OddityThePageCommentCountsFirstAndFollowsTheBackground) {
  Start(0);
  doc.NewPage(0, 0, 0, 0, 255, 0, 0);
  const Lines lines = FlushedLines();
  const auto comment = std::find(lines.begin(), lines.end(), "%%Page: 2 2");
  ASSERT_NE(comment, lines.end());
  EXPECT_EQ(Lines(comment - 2, comment), (Lines{"1 0 0 setrgbcolor", "stroke"}));
}

TEST_F(PsOddities, OddityTheRotationStandsOnceAndMovesHeightFirst) {
  const auto rotation = [&](OrientationConstants orientation, bool rotated) {
    doc.Orientation(orientation);
    doc.Rotated(rotated);
    EXPECT_TRUE(doc.Create("doc"));
    const Lines lines = FlushedLines();
    const auto end = std::find(lines.begin(), lines.end(), "%%EndComments");
    return Lines{end + 1, std::find(lines.begin(), lines.end(), "/Times-Roman findfont")};
  };
  using enum OrientationConstants;
  EXPECT_EQ(rotation(Portrait, false), Lines());
  EXPECT_EQ(rotation(Portrait, true), (Lines{"90 rotate", "0 -842 translate"}));
  EXPECT_EQ(rotation(Landscape, false), (Lines{"90 rotate", "0 -595 translate"}));
  EXPECT_EQ(rotation(Landscape, true), (Lines{"180 rotate", "-595 -842 translate"}));
}

TEST_F(PsOddities, OddityTextAndPropertiesAreNotEscaped) {
  doc.Title("a (b \\ é");
  Start();
  EXPECT_TRUE(doc.WriteText(R"(\(x) \101)"));
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "%%Title: a (b \\ \xE9"));
  EXPECT_TRUE(Has(lines, R"((\(x) \101) show)"));
}

TEST_F(PsOddities, OddityALineIsClosedAndNeverFilled) {
  Start(0);
  doc.SetFillStyle(true);
  EXPECT_TRUE(doc.DrawLine(0, 0, 10, 0));
  EXPECT_EQ(MarksOfLastPage(), (Lines{"newpath", "0 842 moveto", "10 842 lineto", "closepath",
                                      "0 0 0 setrgbcolor", "1 setlinewidth", "stroke"}));
}

TEST_F(PsOddities, OddityASolidLineDoesNotResetTheDash) {
  Start(0);
  doc.SetDash("3 2");
  doc.DrawLine(0, 0, 10, 0);
  doc.SetDash("");
  doc.DrawLine(0, 0, 10, 0);
  const Lines lines = MarksOfLastPage();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "[3 2] 0 setdash"), 1);
  EXPECT_FALSE(Has(lines, "[] 0 setdash"));
}

TEST_F(PsOddities, OddityACreateThatFailsForgetsTheOpenFile) {
  Start(0);
  EXPECT_FALSE(doc.Create("doc"));
  doc.Flush();
  EXPECT_EQ(Why(), RefusalReason::FileNotOpen);
  EXPECT_EQ(*memory->File("doc"), "");
}

TEST_F(PsOddities, OddityTheFileHasNoSetupAndEachMarkSpellsOutItsPen) {
  Start(0);
  Font(FontNumberConstants::Helvetica, 9);
  EXPECT_TRUE(doc.WriteText("a", true));
  EXPECT_TRUE(doc.WriteText("b", true));
  const Lines lines = FlushedLines();
  EXPECT_EQ(*(std::find(lines.begin(), lines.end(), "%%EndComments") + 1), "newpath");
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Helvetica findfont"), 2);
}

TEST_F(PsOddities, OddityAnArcTurnsAsOftenAsTold) {
  Start(0);
  doc.DrawArc(100, 100, 50, 0, 1e9F);
  EXPECT_EQ(MarksOfLastPage().at(2), "100 742 50 0 1e+09 arc");
}

TEST_F(PsOddities, OddityThePageIsOutlinedInItsOwnColorEvenIfItIsWhite) {
  Start(0);
  const Lines lines = FlushedLines();
  const auto comment = std::find(lines.begin(), lines.end(), "%%Page: 1 1");
  EXPECT_EQ(Lines(comment - 2, comment), (Lines{"1 1 1 setrgbcolor", "stroke"}));
}

}  // namespace
}  // namespace vellumark::tests
