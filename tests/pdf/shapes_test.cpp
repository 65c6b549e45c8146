// SPDX-License-Identifier: MIT
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class Shapes : public PdfTest {
 protected:
  /// Path and painting operators of the only mark, behind the three lines of the pen.
  Lines Path() {
    const auto marks = MarksOfOnlyPage();
    EXPECT_EQ(marks.size(), 1U);
    return {marks.at(0).begin() + 3, marks.at(0).end()};
  }
};

TEST_F(Shapes, ALineHasItsPenAndTwoPoints) {
  Start();
  doc.SetColor(255, 0, 0);
  doc.SetDash("3 2");
  doc.SetThickness(4);
  doc.SetFillStyle(true);
  EXPECT_TRUE(doc.DrawLine(0, 0, 100, 0));
  EXPECT_EQ(MarksOfOnlyPage().at(0),
            (Lines{"1 0 0 RG", "[3 2] 0 d", "4 w", "50 792 m", "150 792 l", "S"}));
}

TEST_F(Shapes, ARectangleIsFilledWithTheFillColor) {
  Start();
  doc.SetFillStyle(true);
  doc.SetFillColor(0, 0, 255);
  EXPECT_TRUE(doc.DrawRectangle(10, 20, 30, 40));
  EXPECT_EQ(MarksOfOnlyPage().at(0),
            (Lines{"0 0 0 RG", "0 0 1 rg", "1 w", "60 732 30 40 re", "B"}));
}

TEST_F(Shapes, ACurveStartsAtItsFirstControlPoint) {
  Start(0);
  EXPECT_TRUE(doc.DrawCurve(10, 20, 30, 40, 50, 60));
  EXPECT_EQ(Path(), (Lines{"10 822 m", "10 822 30 802 50 782 c", "b"}));
}

TEST_F(Shapes, ACircleIsFourCurvesRoundedToPoints) {
  Start();
  EXPECT_TRUE(doc.DrawCircle(100, 100, 50));
  EXPECT_EQ(Path(), (Lines{"100 692 m", "100 720 122 742 150 742 c", "178 742 200 720 200 692 c",
                           "200 664 178 642 150 642 c", "122 642 100 664 100 692 c", "b"}));
}

TEST_F(Shapes, AnArcIsASliceOfSegmentsUpToARightAngle) {
  Start(0);
  // kappa for 90 degrees is 0.5523: 55 of 100 points.
  EXPECT_TRUE(doc.DrawArc(300, 442, 100, 0, 180));
  EXPECT_EQ(Path(), (Lines{"300 400 m", "400 400 l", "400 455 355 500 300 500 c",
                           "245 500 200 455 200 400 c", "b"}));
}

TEST_F(Shapes, AnArcWhoseAnglesEndReversedRunsThroughZero) {
  Start(0);
  EXPECT_TRUE(doc.DrawArc(300, 442, 100, 270, 450)) << "450 is reduced to 90: 270 to 90";
  EXPECT_EQ(Path(), (Lines{"300 400 m", "300 300 l", "355 300 400 345 400 400 c",
                           "400 455 355 500 300 500 c", "b"}));
}

TEST_F(Shapes, ArcsOfStrangeAnglesEndAndAreBounded) {
  Start(0);
  EXPECT_TRUE(doc.DrawArc(300, 400, 100, 45, 45));
  EXPECT_TRUE(doc.DrawArc(300, 400, 100, -1e9F, 0)) << "millions of turns are drawn as two";
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  EXPECT_FALSE(doc.DrawArc(300, 400, 100, 0, kNan));
  EXPECT_FALSE(doc.DrawArc(300, 400, 100, 0, kInfinity));
  EXPECT_FALSE(doc.DrawArc(300, 400, 100, 1e30F, 0));
  EXPECT_EQ(doc.LastRefusal().sentence, "run-time error 6 (overflow) stopped the call");
  const auto marks = MarksOfOnlyPage();
  ASSERT_EQ(marks.size(), 2U) << "a refused arc writes nothing";
  EXPECT_LE(marks[1].size(), 3U + 3 + 8);
}

TEST_F(Shapes, AnArcTurnsTwiceAtMost) {
  const auto curves_of = [&](float from) {
    Start(0);
    EXPECT_TRUE(doc.DrawArc(300, 400, 100, from, 360));
    const Lines mark = MarksOfOnlyPage().front();
    return std::count_if(mark.begin(), mark.end(),
                         [](const std::string& line) { return line.ends_with(" c"); });
  };
  EXPECT_EQ(curves_of(0), 4);
  EXPECT_EQ(curves_of(-360), 8) << "twice is twice";
  EXPECT_EQ(curves_of(-361), 5) << "more is one turn and the rest";
}

TEST_F(Shapes, TouchTheMarginsButDoNotCrossThem) {
  Start();  // 495 x 742
  EXPECT_TRUE(doc.DrawLine(0, 0, 495, 742));
  EXPECT_FALSE(doc.DrawLine(0, 0, 496, 742));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "shape would reach x = 496, but the usable area ends at x = 495");
  EXPECT_FALSE(doc.DrawLine(0, -1, 0, 0));
  EXPECT_EQ(Why(), RefusalReason::NegativeCoordinate);
  EXPECT_TRUE(doc.DrawRectangle(495, 742, 0, 0));
  EXPECT_FALSE(doc.DrawRectangle(0, 700, 10, 43));
  EXPECT_EQ(Why(), RefusalReason::BeyondBottomMargin);
  EXPECT_FALSE(doc.DrawRectangle(32767, 0, 32767, 0)) << "the sum leaves 16 bits";
  EXPECT_FALSE(doc.DrawCurve(0, 0, 0, 743, 0, 0));
  EXPECT_TRUE(doc.DrawCircle(0, 0, 0));
  EXPECT_TRUE(doc.DrawCircle(50, 50, 50));
  EXPECT_FALSE(doc.DrawCircle(5, 50, 10));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "radius is 10 points, but the center is only 5 points from the left or top edge");
  EXPECT_FALSE(doc.DrawEllipse(100, 20, 50, 21));
  EXPECT_FALSE(doc.DrawArc(490, 50, 10, 0, 90));
  EXPECT_EQ(MarksOfOnlyPage().size(), 4U);
}

}  // namespace
}  // namespace vellumark::tests
