// SPDX-License-Identifier: MIT
//
// What document/oddities.h says of PDF: each classic oddity by its name, and behind it what the
// conforming output does instead. (The rules of the format, over many documents, are checked by
// tests/readers/conforming_test.py.)
#include <algorithm>

#include "fuzz/written_file.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class PdfOddities : public PdfTest {};
class ConformingPdf : public ConformingPdfTest {
 protected:
  /// The flushed file as one text.
  std::string File() {
    doc.Flush();
    return *memory->File("doc");
  }
};

TEST_F(PdfOddities, OddityPositionsLeaveOutLineEnds) {
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

TEST_F(ConformingPdf, ConformingPositionsAreTrue) {
  Start();
  doc.DrawLine(0, 0, 10, 10);
  const std::string file = File();
  const std::size_t xref = file.find("xref\n");
  EXPECT_NE(file.find("\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n"), file.npos);
  const std::size_t stream = file.find("\nstream\n") + 8;
  const std::size_t length = file.find("\nendstream") - stream;
  EXPECT_NE(file.find("/Length " + std::to_string(length) + "\n"), file.npos);
}

TEST_F(PdfOddities, OddityReservedObjectsHaveNoOffset) {
  Start();
  const Lines lines = FlushedLines();
  const auto xref = std::find(lines.begin(), lines.end(), "xref");
  EXPECT_EQ(xref[2], "0000000000 65535 f ");
  EXPECT_EQ(xref[2 + 2], "0000000000 00000 n ");
  EXPECT_EQ(xref[2 + 17], "0000000000 00000 n ");
}

TEST_F(ConformingPdf, ConformingReservedObjectsHaveTheirOffset) {
  Start();
  const std::string file = File();
  const Lines lines = SplitLines(file, "\n");
  const auto xref = std::find(lines.begin(), lines.end(), "xref");
  // The page tree and the resources.
  EXPECT_EQ(std::stoul(xref[2 + 2]), file.find("\n2 0 obj\n") + 1);
  EXPECT_EQ(std::stoul(xref[2 + 3]), file.find("\n3 0 obj\n") + 1);
}

TEST_F(PdfOddities, OddityCrossReferencesHave21Bytes) {
  Start();
  EXPECT_TRUE(Has(FlushedLines(), "0000000013 00000 n ")) << "19 bytes, CR and LF";
}

TEST_F(ConformingPdf, ConformingCrossReferencesHave20Bytes) {
  Start();
  const std::string file = File();
  const std::size_t entries = file.find("\n0000000000 65535 f \n") + 1;
  const std::size_t trailer = file.find("trailer\n");
  const std::size_t size = file.find("/Size ");
  EXPECT_EQ(trailer - entries, 20 * std::stoul(file.substr(size + 6)));
}

TEST_F(PdfOddities, OddityObjectNumbersHave16Bits) {
  Start();
  int shapes = 0;
  while (doc.DrawLine(0, 0, 1, 1)) ++shapes;
  EXPECT_EQ(Why(), RefusalReason::NoObjectNumbersLeft);
  EXPECT_EQ(shapes, (32767 - 19 - 4) / 2) << "17 fixed objects, the background's two, four kept";
}

TEST_F(ConformingPdf, ConformingObjectNumbersHave32Bits) {
  ASSERT_TRUE(doc.Create("doc"));
  for (int page = 0; page < 40000; ++page) {
    doc.NewPage(0, 0, 0, 0, 255, 255, 255);
    ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));
  }
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "/Count 40000"));
  // 32 pages a node: 1,250 nodes below 40, which lie below 2 and the root.
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Type /Pages"), 1250 + 40 + 2 + 1);
}

TEST_F(ConformingPdf, ConformingPagesAreATree) {
  for (const int pages : {1, 32, 33, 1024, 1025}) {
    ASSERT_TRUE(doc.Create("doc"));
    for (int page = 0; page < pages; ++page) doc.NewPage(0, 0, 0, 0, 255, 255, 255);
    doc.Flush();
    EXPECT_EQ(fuzz::FaultOfPdf(*memory->File("doc")), "") << pages;
  }
}

TEST_F(PdfOddities, OddityEachMarkIsAStream) {
  Start();
  doc.DrawLine(0, 0, 1, 1);
  doc.DrawLine(0, 0, 1, 1);
  doc.WriteText("x");
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "stream"), 1 + 3 + 1);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "1 w"), 2);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "q"), 1 + 2);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "Q"), 1 + 2);
}

TEST_F(ConformingPdf, ConformingMarksAreOneStreamInWhichOnlyChangesAreSet) {
  Start();
  doc.SetThickness(2);
  doc.DrawLine(0, 0, 1, 1);
  doc.SetColor(255, 0, 0);
  doc.DrawLine(0, 0, 1, 1);
  doc.WriteText("x", true);
  doc.WriteText("y", true);
  doc.DrawLine(0, 0, 1, 1);
  EXPECT_EQ(Marks(), (Lines{"2 w", "50 792 m", "51 791 l", "S", "1 0 0 RG", "50 792 m", "51 791 l",
                            "S", "BT", "1 0 0 rg", "/F0 8 Tf", "50 784 TD(x)Tj", "0 -8 TD(y)Tj",
                            "ET", "50 792 m", "51 791 l", "S"}));
}

TEST_F(ConformingPdf, LinesThatAreAsFarApartAsTheTwoBeforeAreNotMoved) {
  Start();
  for (const char* const line : {"a", "b", "c"}) doc.WriteText(line, true);
  EXPECT_TRUE(doc.WriteText("d", false));
  EXPECT_TRUE(doc.WriteText("e", true, 3)) << "beside";
  EXPECT_TRUE(doc.WriteText("f", true));
  EXPECT_FALSE(doc.WriteText(std::string(200, 'x'))) << "refused, and nothing is forgotten";
  EXPECT_TRUE(doc.WriteText("g", true));
  EXPECT_EQ(Marks(), (Lines{"BT", "/F0 8 Tf", "50 784 TD(a)Tj", "0 -8 TD(b)Tj", "(c)'", "(d)'",
                            "5 0 TD(e)Tj", "-5 -11 TD(f)Tj", "0 -8 TD(g)Tj"}));
}

TEST_F(ConformingPdf, ConformingPagesAreCompressedIfTheyAreToBe) {
  doc.Compressed(true);
  Start();
  doc.WriteText("text");
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.Compressed(false);
  doc.WriteText("more");
  const std::string file = File();
  EXPECT_EQ(file.find("(text)Tj"), file.npos);
  EXPECT_NE(file.find("(more)Tj"), file.npos) << "read when a page ends";
  // A page with moved words, which repeat little, is compressed at level 3, as its header tells.
  for (const bool justified : {false, true}) {
    doc.Compressed(true);
    Start();
    EXPECT_TRUE(doc.WriteMultiText("words to be justified", 0, kNoAlignment, justified, 50));
    const std::string header = justified ? "stream\n\x78\x5E" : "stream\n\x78\x9C";
    EXPECT_NE(File().find(header), std::string::npos) << justified;
  }
}

TEST_F(PdfOddities, OddityFontsNameABaseEncoding) {
  Start();
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/BaseEncoding /WinAnsiEncoding"), 14);
  EXPECT_FALSE(Has(lines, "/Encoding /WinAnsiEncoding"));
}

TEST_F(ConformingPdf, ConformingFontsNameTheirEncoding) {
  Start();
  Font(FontNumberConstants::Helvetica, 10);
  doc.WriteText("\u00E9 \u010F");
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Encoding /WinAnsiEncoding"), 1)
      << "the footer's; only fonts that are used are in the file";
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Type /Font"), 2);
  EXPECT_TRUE(Has(lines, "/BaseEncoding /WinAnsiEncoding"));
  EXPECT_TRUE(Has(lines, "/FirstChar 1")) << "of the second encoding";
  EXPECT_TRUE(Has(lines, "/FirstChar 32"));
  EXPECT_TRUE(Has(lines, "/LastChar 255")) << "of both: a text has a code beyond ASCII";
  EXPECT_FALSE(Has(lines, "/LastChar 126"));
  EXPECT_TRUE(Has(lines, "/FontBBox [ -166 -225 1000 931 ]"));
}

TEST_F(PdfOddities, OddityRotateIsNotInDegrees) {
  doc.Rotated(true);
  Start();
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.Rotated(false);
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Rotate 1"), 1) << "read when a page ends";
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Rotate 0"), 1);
}

TEST_F(ConformingPdf, ConformingRotateIsInDegrees) {
  doc.Rotated(true);
  Start();
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.Rotated(false);
  const Lines lines = FlushedLines();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "/Rotate 90"), 1);
  EXPECT_FALSE(Has(lines, "/Rotate 0"));
}

TEST_F(PdfOddities, OddityUnfilledShapesAreWhite) {
  Start();
  doc.SetFillColor(255, 0, 0);
  doc.DrawRectangle(0, 0, 10, 10);
  EXPECT_EQ(MarksOfOnlyPage().at(0).at(1), "1 1 1 rg");
}

TEST_F(ConformingPdf, ConformingUnfilledShapesAreOpen) {
  Start();
  doc.SetFillColor(255, 0, 0);
  doc.DrawRectangle(0, 0, 10, 10);
  doc.DrawCurve(0, 0, 5, 5, 9, 9);
  doc.SetFillStyle(true);
  doc.DrawRectangle(0, 0, 10, 10);
  EXPECT_EQ(Marks(), (Lines{"50 782 10 10 re", "S", "50 792 m", "50 792 55 787 59 783 c", "s",
                            "1 0 0 rg", "50 782 10 10 re", "B"}));
}

TEST_F(PdfOddities, OddityOnlyParenthesesAreEscaped) {
  Start();
  doc.WriteText(R"(\101 (x))");
  EXPECT_TRUE(Has(FlushedLines(), R"(T* 0 0 0 rg (\101 \(x\)) Tj)"));
}

TEST_F(ConformingPdf, ConformingTextIsLiteral) {
  Start();
  doc.WriteText(R"(\101 (x) C:\new)");
  EXPECT_EQ(Marks().back(), R"(50 784 TD(\\101 \(x\) C:\\new)Tj)");
}

TEST_F(PdfOddities, OddityPropertiesAreUnescaped) {
  doc.Title("50 % (draft) \\ \u00E9");
  Start();
  doc.WriteText("x", true, 0, kNoAlignment, "https://a.b/) \u00E9");
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "/Title (50 % (draft) \\ \xE9)"));
  EXPECT_TRUE(Has(lines, "/A << /URI (https://a.b/) \xE9) /S /URI >>"));
}

TEST_F(ConformingPdf, ConformingPropertiesAreEscaped) {
  doc.Title(") unbalanced ((");
  doc.Author("\u0159");
  Start();
  doc.WriteText("x", true, 0, kNoAlignment, "https://a.b/) \u00E9");
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, R"(/Title (\) unbalanced \(\())"));
  EXPECT_TRUE(Has(lines, "/Author (\xFE\xFF\x01\x59)"));
  EXPECT_TRUE(Has(lines, R"(/A << /URI (https://a.b/\)%20%C3%A9) /S /URI >>)"));
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const auto& line) { return line.starts_with("/Subject"); }),
            0)
      << "a property that was not set is left out";
}

TEST_F(PdfOddities, OddityCurvesHaveWholePoints) {
  Start();
  doc.DrawCircle(100, 100, 5);
  EXPECT_EQ(MarksOfOnlyPage().at(0).at(4), "145 695 147 697 150 697 c") << "of 2.761";
}

TEST_F(ConformingPdf, ConformingCurvesHaveDecimals) {
  Start(0);
  doc.DrawCircle(100, 100, 5);
  doc.DrawArc(100, 100, 50, 0, 45);
  EXPECT_EQ(
      Marks(),
      (Lines{"95 742 m", "95 744.761 97.239 747 100 747 c", "102.761 747 105 744.761 105 742 c",
             "105 739.239 102.761 737 100 737 c", "97.239 737 95 739.239 95 742 c", "s",  //
             "100 742 m", "150 742 l", "150 755.261 144.732 767.979 135.355 777.355 c", "s"}));
}

TEST_F(PdfOddities, OddityEllipsesBulge) {
  Start();
  doc.DrawEllipse(100, 100, 50, 20);
  const Lines mark = MarksOfOnlyPage().at(0);
  EXPECT_EQ(Lines(mark.begin() + 3, mark.end()),
            (Lines{"100 692 m", "100 692 100 712 150 712 c", "150 712 200 712 200 692 c",
                   "200 692 200 672 150 672 c", "150 672 100 672 100 692 c", "b"}));
}

TEST_F(ConformingPdf, ConformingEllipsesAreRound) {
  Start();
  doc.DrawEllipse(100, 100, 50, 20);
  // 0.552285 of the radii.
  EXPECT_EQ(
      Marks(),
      (Lines{"100 692 m", "100 703.046 122.386 712 150 712 c", "177.614 712 200 703.046 200 692 c",
             "200 680.954 177.614 672 150 672 c", "122.386 672 100 680.954 100 692 c", "s"}));
}

TEST_F(PdfOddities, OddityBackgroundsHaveAnOutline) {
  Start();
  EXPECT_EQ(Streams(FlushedLines()).at(0), (Lines{"1 1 1 rg", "0 0 595 842 re", "B"}));
}

TEST_F(ConformingPdf, ConformingBackgroundsAreFilledUnlessWhite) {
  Start();
  EXPECT_EQ(Marks(), Lines());
  ASSERT_TRUE(doc.Create("doc"));
  doc.NewPage(50, 50, 50, 50, 255, 0, 0);
  EXPECT_EQ(Marks(), (Lines{"1 0 0 rg", "0 0 595 842 re", "f"}));
}

}  // namespace
}  // namespace vellumark::tests
