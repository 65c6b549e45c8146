// SPDX-License-Identifier: MIT
//
// Whole files, compared with tests/expected/*.txt: one output line a line, bytes above 127 as they
// are, line ends as LF.
#include <fstream>
#include <iterator>

#include "tests/pdf_fixture.h"

namespace vellumark::tests {
namespace {

class WholeFile : public PdfTest {
 protected:
  void ExpectFile(const std::string& name) {
    const std::string path = std::string(VELLUMARK_EXPECTED) + "/" + name + ".txt";
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path;
    std::string expected;
    for (std::istreambuf_iterator<char> c(file), end; c != end; ++c) {
      if (*c == '\n') expected += '\r';
      expected += *c;
    }
    doc.Flush();
    const std::string& written = *memory->File("doc.pdf");
    if (written == expected) return;
    std::ofstream(name + ".actual", std::ios::binary) << written;
    EXPECT_EQ(SplitLines(written), SplitLines(expected)) << "written to " << name << ".actual";
  }
};

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

TEST_F(WholeFile, WithoutAnyPageThereIsOneWithTheFooterOnly) {
  doc.PaperSize(PaperSizeConstants::Letter);
  doc.Orientation(OrientationConstants::Landscape);
  ASSERT_TRUE(doc.Create("doc.pdf"));
  ExpectFile("no_page");
}

TEST_F(WholeFile, IsTheSameForTheSameCallsInASecondDocumentOfTheSameObject) {
  const auto draw = [&] {
    Start();
    doc.DrawCircle(50, 50, 20);
    doc.WriteText("text", true, 0, kNoAlignment, "http://a");
    doc.Flush();
    return *memory->File("doc.pdf");
  };
  const std::string first = draw();
  EXPECT_EQ(draw(), first);
}

}  // namespace
}  // namespace vellumark::tests
