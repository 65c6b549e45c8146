// SPDX-License-Identifier: MIT
//
// Whole files, compared with tests/expected/*.txt.
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class WholeFile : public PdfTest {};

TEST_F(WholeFile, OnePageWithALine) {
  doc.Author("Ada");
  doc.Creator("test");
  doc.Keywords("k");
  doc.Producer("p");
  doc.Subject("s");
  doc.Title("Line");
  Start();
  doc.DrawLine(0, 0, 100, 0);
  ExpectFile("one_line");
}

TEST_F(ConformingPdfTest, ConformingOnePageWithALine) {
  doc.Author("Ada");
  doc.Creator("test");
  doc.Keywords("k");
  doc.Producer("p");
  doc.Subject("s");
  doc.Title("Line");
  Start();
  doc.DrawLine(0, 0, 100, 0);
  ExpectFile("one_line_conforming");
}

TEST_F(WholeFile, WithoutAnyPageThereIsOneWithTheFooterOnly) {
  doc.PaperSize(PaperSizeConstants::Letter);
  doc.Orientation(OrientationConstants::Landscape);
  ASSERT_TRUE(doc.Create("doc"));
  ExpectFile("no_page");
}

TEST_F(WholeFile, IsTheSameForTheSameCallsInASecondDocumentOfTheSameObject) {
  const auto draw = [&] {
    Start();
    doc.DrawCircle(50, 50, 20);
    doc.WriteText("text", true, 0, kNoAlignment, "http://a");
    doc.Flush();
    return *memory->File("doc");
  };
  const std::string first = draw();
  EXPECT_EQ(draw(), first);
}

}  // namespace
}  // namespace vellumark::tests
