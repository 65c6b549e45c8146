// SPDX-License-Identifier: MIT
//
// Header and footer, page numbers, measuring.
#include "fuzz/written_file.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class RunningHeads : public PdfTest {
 protected:
  /// The strings that the file shows, in their order.
  Lines Shown() {
    Lines shown;
    for (const std::string& line : FlushedLines()) {
      const std::size_t begin = line.find(" rg (");
      if (begin != std::string::npos)
        shown.push_back(line.substr(begin + 5, line.size() - begin - 9));
    }
    return shown;
  }
};

TEST_F(RunningHeads, TheFooterIsTheLegalNoticeAndCanBeLeftOut) {
  EXPECT_EQ(doc.Footer(), "Copyright (c) 2026 Vellumark");
  doc.Footer("");
  Start();
  EXPECT_EQ(Shown(), Lines());
}

TEST_F(RunningHeads, PlaceholdersAreTheNumbersOfPages) {
  doc.Header("{page}{{page} {unknown {{pages}");  // which does not ask for the number of pages
  doc.Footer("{page} of {pages}");
  Start();
  doc.NewPage(50, 11, 50, 50, 255, 255, 255);  // the top margin has no room for a header
  EXPECT_EQ(Shown(), (Lines{"1{page} {unknown {pages}", "1 of 2", "2 of 2"}));
}

TEST_F(RunningHeads, PlacesThatWaitedStandWhereTheTableSays) {
  for (const bool conforming : {false, true}) {
    doc.Conforming(conforming);
    doc.Header("{page} of {pages}");
    doc.Compressed(false);
    Start();
    doc.SetColor(255, 0, 0);
    doc.DrawLine(0, 0, 10, 10);
    doc.NewPage(50, 50, 50, 50, 255, 255, 255);
    doc.Flush();
    const std::string file = *memory->File("doc");
    EXPECT_EQ(conforming ? fuzz::FaultOfPdf(file) : fuzz::FaultOfClassicPdf(file), "");
    EXPECT_NE(file.find("(1 of 2)"), std::string::npos);
    EXPECT_NE(file.find("(2 of 2)"), std::string::npos);
    for (std::size_t at = 0; (at = file.find(" rg", at)) != std::string::npos; ++at) {
      EXPECT_TRUE(file.substr(0, at).ends_with("0 0 0") || file.substr(0, at).ends_with("1 1 1"))
          << "heads are black, whatever the pen; the page is white: " << at;
    }
  }
}

TEST_F(RunningHeads, OnesThatWaitedStandWhereOthersDo) {
  const auto marks_of = [&](const char* header, const char* footer) {
    doc.Header(header);
    doc.Footer(footer);
    Start();
    doc.NewPage(20, 30, 40, 60, 255, 255, 255);
    Lines marks;
    std::string place;
    for (const std::string& line : FlushedLines()) {
      if (line.ends_with(" Tm")) place = line;
      if (line.find(" of 2)") == std::string::npos) continue;
      marks.push_back(place);
      marks.push_back(line);
    }
    return marks;
  };
  const Lines waited = marks_of("{page} of {pages}", "{page} of {pages}");
  ASSERT_EQ(waited.size(), 8U) << "the places and the texts of four heads";
  const Lines first = marks_of("1 of 2", "1 of 2");
  const Lines second = marks_of("2 of 2", "2 of 2");
  EXPECT_TRUE(std::equal(waited.begin(), waited.begin() + 4, first.begin()));
  EXPECT_TRUE(std::equal(waited.begin() + 4, waited.end(), second.begin() + 4));
}

TEST_F(RunningHeads, OneThatIsTooWideIsToldAndTheLegalNoticeIsNot) {
  doc.PaperSize(PaperSizeConstants::A5);
  Start();
  doc.NewPage(190, 20, 190, 20, 255, 255, 255);
  doc.Flush();
  EXPECT_EQ(Why(), RefusalReason::None);
  Start();
  doc.NewPage(190, 20, 190, 20, 255, 255, 255);
  doc.Header("wide {page} of {pages}");
  doc.Footer("");
  doc.Flush();
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the file is whole, but a header or footer is left out: it is 45 points wide, and only "
            "40 points are free between the margins");
}

TEST_F(RunningHeads, AreReadWhenAPageEnds) {
  doc.Footer("first");
  Start();
  doc.Footer("changed");
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  doc.Footer("{page}");
  EXPECT_EQ(Shown(), (Lines{"changed", "2"}));
}

TEST_F(RunningHeads, LeaveThePenAndThePositionAlone) {
  doc.Header("h");
  Start();
  Font(FontNumberConstants::Helvetica, 20);
  doc.SetPosition(7, 70);
  doc.Flush();
  FontNumberConstants number{};
  std::uint8_t height = 0;
  FontStyleConstants style{};
  FontEffectConstants effect{};
  doc.GetFont(number, height, style, effect);
  EXPECT_EQ(number, FontNumberConstants::Helvetica);
  EXPECT_EQ(height, 20);
  EXPECT_EQ(At(), (Position{7, 70}));
}

TEST_F(RunningHeads, PageNumberIsThatOfTheOpenPage) {
  EXPECT_EQ(doc.PageNumber(), 0);
  Start();
  EXPECT_EQ(doc.PageNumber(), 1);
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  EXPECT_EQ(doc.PageNumber(), 2);
  doc.Flush();
  ASSERT_TRUE(doc.Create("doc"));
  EXPECT_EQ(doc.PageNumber(), 0);
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  EXPECT_EQ(doc.PageNumber(), 1) << "a second document counts anew";
}

TEST_F(RunningHeads, AConformingParagraphKeepsClearOfTheFooterIfThereIsOne) {
  doc.Conforming(true);
  for (const bool footer : {true, false}) {
    doc.Footer(footer ? "f" : "");
    Start();
    doc.SetPosition(0, 742 - 12 - 8);
    EXPECT_TRUE(doc.WriteMultiText("one"));
    EXPECT_EQ(doc.PageNumber(), 1);
    EXPECT_TRUE(doc.WriteMultiText("two"));
    EXPECT_EQ(doc.PageNumber(), footer ? 2 : 1);
    doc.Flush();
  }
}

TEST_F(RunningHeads, MeasuringIsWhatWritingTakes) {
  for (const bool conforming : {false, true}) {
    doc.Conforming(conforming);
    Start();
    Font(FontNumberConstants::Times, 12);
    const std::string text = "A paragraph of some words,  with two blanks, \xC3\xA9 and an end. ";
    const int width = doc.TextWidth(text);
    EXPECT_TRUE(doc.WriteText(text));
    EXPECT_EQ(At().x, width);
    doc.SetPosition(20, 100);
    std::string long_text = text;
    for (int i = 0; i < 2; ++i) long_text.append(text);
    const int height = doc.TextHeight(long_text, 3, 200);
    EXPECT_EQ(At(), (Position{20, 100}));
    EXPECT_TRUE(doc.WriteMultiText(long_text, 3, kNoAlignment, true, 200));
    EXPECT_EQ(At().y, 100 + height);
    EXPECT_EQ(doc.TextHeight("unbreakable", 0, 20), 0);
    EXPECT_EQ(Why(), RefusalReason::WordTooWide);
    EXPECT_EQ(doc.TextWidth(std::string(100000, 'W')), 0);
    EXPECT_EQ(Why(), RefusalReason::RunTimeFault);
    doc.Flush();
  }
}

}  // namespace
}  // namespace vellumark::tests
