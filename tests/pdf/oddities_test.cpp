// SPDX-License-Identifier: MIT
//
// One test for each deliberate oddity of pdf/oddities.h.
#include <algorithm>

#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class PdfOddities : public PdfTest {};

TEST_F(PdfOddities, PositionsDoNotCountLineEnds) {
  Start();
  doc.DrawLine(0, 0, 10, 10);
  const Lines lines = FlushedLines();
  const auto xref = std::find(lines.begin(), lines.end(), "xref");
  int checked = 0;
  std::size_t position = 0;
  for (auto line = lines.begin(); line != xref; position += line++->size()) {
    if (!line->ends_with(" 0 obj") || *line == "2 0 obj" || *line == "17 0 obj") continue;
    const std::string offset = std::to_string(position);
    EXPECT_EQ(xref[2 + std::stol(*line)],
              std::string(10 - offset.size(), '0') + offset + " 00000 n ");
    ++checked;
  }
  EXPECT_EQ(checked, 23) << "25 objects without the two that are reserved";
  EXPECT_TRUE(Has(lines, "30")) << "the line's stream: Q, q, pen and path without line ends";
}

TEST_F(PdfOddities, ReservedObjectsHaveNoOffset) {
  Start();
  const Lines lines = FlushedLines();
  const auto xref = std::find(lines.begin(), lines.end(), "xref");
  EXPECT_EQ(xref[2], "0000000000 65535 f ");
  EXPECT_EQ(xref[2 + 2], "0000000000 00000 n ");
  EXPECT_EQ(xref[2 + 17], "0000000000 00000 n ");
}

TEST_F(PdfOddities, TheEncodingStandsInTheFontItself) {
  Start();
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/BaseEncoding /WinAnsiEncoding"), 14);
  EXPECT_FALSE(Has(lines, "/Encoding /WinAnsiEncoding"));
}

TEST_F(PdfOddities, RotateIsAFlagNotDegrees) {
  doc.Rotated(true);
  Start();
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.Rotated(false);
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Rotate 1"), 1) << "read when a page ends";
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Rotate 0"), 1);
}

TEST_F(PdfOddities, AnUnfilledShapeIsPaintedWhite) {
  Start();
  doc.SetFillColor(255, 0, 0);
  doc.DrawRectangle(0, 0, 10, 10);
  EXPECT_EQ(MarksOfOnlyPage().at(0).at(1), "1 1 1 rg");
}

TEST_F(PdfOddities, OnlyParenthesesOfPageTextAreEscaped) {
  doc.Title("50 % (draft) \\ é");
  Start();
  doc.WriteText(R"(\101 (x))");
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "/Title (50 % (draft) \\ \xE9)"));
  EXPECT_TRUE(Has(lines, R"(T* 0 0 0 rg (\101 \(x\)) Tj)"));
}

TEST_F(PdfOddities, AnEllipseBulgesTowardTheCornersOfItsBox) {
  Start();
  doc.DrawEllipse(100, 100, 50, 20);
  const Lines mark = MarksOfOnlyPage().at(0);
  EXPECT_EQ(Lines(mark.begin() + 3, mark.end()),
            (Lines{"100 692 m", "100 692 100 712 150 712 c", "150 712 200 712 200 692 c",
                   "200 692 200 672 150 672 c", "150 672 100 672 100 692 c", "b"}));
}

}  // namespace
}  // namespace vellumark::tests
