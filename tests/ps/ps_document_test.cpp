// SPDX-License-Identifier: MIT
#include <clocale>

#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class PsDocument : public PsTest {};

TEST_F(PsDocument, OnePageWithALine) {
  doc.Author("Ada");
  doc.Creator("test");
  doc.Title("Line");
  EXPECT_EQ(doc.Version(), "3.0");
  Start(20);
  doc.DrawLine(0, 0, 100, 50);
  ExpectFile("one_line_ps");
}

TEST_F(PsDocument, WithoutPagesStillShowsOne) {
  ASSERT_TRUE(doc.Create("doc"));
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "%%Pages: 0"));
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "showpage"), 1);
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.starts_with("%%Page: "); }),
            0);
}

TEST_F(PsDocument, EveryPageKeepsItsCommentHoweverLongTheDocument) {
  Start(0);
  for (int page = 1; page < 3; ++page) {
    for (int i = 0; i < 6000; ++i) ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));
    doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  }
  const Lines lines = FlushedLines();
  EXPECT_GT(lines.size(), 65536U);
  for (const char* const comment : {"%%Pages: 3", "%%Page: 3 1", "%%Page: 3 2", "%%Page: 3 3"}) {
    EXPECT_EQ(std::count(lines.begin(), lines.end(), comment), 1) << comment;
  }
  EXPECT_FALSE(Has(lines, "%%Page: x y"));
}

TEST_F(PsDocument, TakesMoreMarksThanAPdfHasNumbersFor) {
  Start(0);
  for (int i = 0; i < 20000; ++i) ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));
}

class PsMarks : public PsTest {
 protected:
  /// The path of the only mark: what stands in front of the paint lines.
  Lines Path(std::size_t paint_lines) {
    const Lines lines = MarksOfLastPage();
    return {lines.begin(), lines.end() - static_cast<std::ptrdiff_t>(paint_lines)};
  }
};

TEST_F(PsMarks, FillBeforeTheyStroke) {
  Start(20);
  doc.SetFillStyle(true);
  doc.SetFillColor(255, 0, 0);
  doc.SetDash("3 2");
  doc.SetThickness(4);
  EXPECT_TRUE(doc.DrawRectangle(10, 10, 30, 0));
  EXPECT_EQ(MarksOfLastPage(),
            (Lines{"newpath", "30 812 moveto", "30 0 rlineto", "0 -0 rlineto", "-30 0 rlineto",
                   "0 0 rlineto", "closepath", "[3 2] 0 setdash", "1 0 0 setrgbcolor", "gsave",
                   "fill", "grestore", "0 0 0 setrgbcolor", "4 setlinewidth", "stroke"}));
}

TEST_F(PsMarks, AnUnfilledShapeIsLeftOpen) {
  Start(0);
  doc.DrawRectangle(0, 0, 10, 10);
  EXPECT_FALSE(Has(MarksOfLastPage(), "fill"));
}

TEST_F(PsMarks, CirclesAndEllipsesAreArcs) {
  Start(20);
  EXPECT_TRUE(doc.DrawCircle(50, 50, 50));
  EXPECT_FALSE(doc.DrawCircle(5, 50, 10));
  EXPECT_EQ(Path(3), (Lines{"newpath", "70 772 50 0 360 arc", "closepath"}));
  Start(20);
  EXPECT_TRUE(doc.DrawEllipse(100, 60, 50, 20));
  EXPECT_EQ(Path(3), (Lines{"newpath", "/mtrx matrix def", "/savematrix mtrx currentmatrix def",
                            "120 762 translate", "50 20 scale", "0 0 1 0 360 arc",
                            "savematrix setmatrix", "closepath"}));
}

TEST_F(PsMarks, CurvesGoBackToTheirStart) {
  Start(0);
  EXPECT_TRUE(doc.DrawCurve(10, 20, 30, 40, 50, 60));
  EXPECT_EQ(Path(3), (Lines{"newpath", "10 822 moveto", "10 822 30 802 50 782 curveto",
                            "10 822 lineto", "closepath"}));
}

TEST_F(PsMarks, AnglesAreWrittenAsGivenWithAPointInAnyLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* const locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "C.UTF-8"}) {
    if (std::setlocale(LC_ALL, locale) != nullptr) break;
  }
  const auto angles = [&](float th1, float th2) {
    Start(0);
    EXPECT_TRUE(doc.DrawArc(100, 100, 50, th1, th2));
    return Path(3).at(2);
  };
  EXPECT_EQ(angles(0, 90), "100 742 50 0 90 arc");
  EXPECT_EQ(angles(45.5F, -22.25F), "100 742 50 45.5 -22.25 arc");
  EXPECT_EQ(angles(0.1F, 1000.0F / 3), "100 742 50 0.1 333.3333 arc");
  EXPECT_EQ(angles(-0.0F, 1e6F), "100 742 50 0 1000000 arc");
  EXPECT_EQ(angles(-1e9F, 3e38F), "100 742 50 -1e+09 3e+38 arc");
  ASSERT_NE(std::setlocale(LC_ALL, before.c_str()), nullptr);
}

TEST_F(PsMarks, AnAngleThatIsNotANumberIsRefused) {
  Start(0);
  EXPECT_FALSE(doc.DrawArc(100, 100, 50, 0, std::numeric_limits<float>::quiet_NaN()));
  EXPECT_FALSE(doc.DrawArc(100, 100, 50, std::numeric_limits<float>::infinity(), 0));
  EXPECT_EQ(MarksOfLastPage(), Lines());
}

TEST_F(PsMarks, ATextNamesItsFontAndStandsAtItsBaseline) {
  Start(20);
  Font(FontNumberConstants::Helvetica, 12, FontStyleConstants::BoldItalic,
       FontEffectConstants::Underline);
  doc.SetColor(0, 0, 255);
  EXPECT_TRUE(doc.WriteText("x", true, 3));
  EXPECT_EQ(At(), (Position{0, 15}));
  EXPECT_EQ(MarksOfLastPage(),
            (Lines{"/Helvetica-BoldOblique findfont", "12 scalefont", "setfont", "newpath",
                   "0 0 1 setrgbcolor", "20 810 moveto", "(x) show", "closepath", "newpath",
                   "20 809 moveto", "27 809 lineto", "closepath", "0 0 1 setrgbcolor",
                   "1 setlinewidth", "stroke"}));
}

TEST_F(PsMarks, JustifiedWordsStandWhereAPdfHasThem) {
  Start(0);
  Font(FontNumberConstants::Courier, 10);
  EXPECT_TRUE(doc.WriteMultiText("aa bb cc dddd", 0, kNoAlignment, true, 55));
  Lines shown;
  for (const std::string& line : MarksOfLastPage()) {
    if (line.ends_with(" moveto") || line.ends_with(" show")) shown.push_back(line);
  }
  EXPECT_EQ(shown, (Lines{"0 832 moveto", "(aa ) show", "22 832 moveto", "(bb ) show",
                          "43 832 moveto", "(cc) show", "0 822 moveto", "(dddd ) show"}));
}

}  // namespace
}  // namespace vellumark::tests
