// SPDX-License-Identifier: MIT
//
// What document/oddities.h says of every language, as PDF has it: each classic oddity by its name,
// and behind it what the conforming output does instead.
#include <memory>
#include <string>
#include <vector>

#include "tests/bmp_file.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class Classic : public PdfTest {};
class Conforming : public ConformingPdfTest {};

constexpr auto kTimes = FontNumberConstants::Times;
constexpr auto kCourier = FontNumberConstants::Courier;

TEST_F(Classic, OddityTextIsCodePageBytes) {
  Start();
  ASSERT_TRUE(doc.WriteText("\u00E9\t\u0159"));
  EXPECT_EQ(MarksOfOnlyPage().at(0).at(3), "T* 0 0 0 rg (\xE9\t?) Tj");
}

TEST_F(Conforming, ConformingTextStaysUnicodeUpToTheFont) {
  Start();
  ASSERT_TRUE(doc.WriteText("\u00E9\t\u0159 \u0434"));
  EXPECT_EQ(Marks(), (Lines{"BT", "/F14 8 Tf", "50 784 TD(\xE9 \xF8 ?)Tj"}))
      << "one run: the second encoding has both letters";
  EXPECT_EQ(doc.LostCharacters(), "\u0434");
}

TEST_F(Classic, OddityMarksNeedNoPage) {
  ASSERT_TRUE(doc.Create("doc"));
  EXPECT_FALSE(doc.WriteText("x")) << "which has no room above the top of a page";
  EXPECT_TRUE(doc.DrawLine(0, 0, 10, 10));
  EXPECT_EQ(Streams(FlushedLines()).size(), 2U) << "the line and the footer are the only page";
}

TEST_F(Conforming, ConformingMarksNeedAPage) {
  memory->PutFile("dot.bmp", PlainBmp(1, 1));
  ASSERT_TRUE(doc.Create("doc"));
  for (const bool written :
       {doc.DrawLine(0, 0, 10, 10), doc.DrawRectangle(0, 0, 1, 1), doc.DrawCircle(1, 1, 1),
        doc.DrawCurve(0, 0, 1, 1, 2, 2), doc.DrawEllipse(1, 1, 1, 1), doc.DrawArc(1, 1, 1, 0, 9),
        doc.WriteText("x"), doc.WriteTitle("x"), doc.WriteMultiText("x"),
        doc.DrawPicture("dot.bmp")}) {
    EXPECT_FALSE(written);
  }
  EXPECT_EQ(Why(), RefusalReason::NoPage);
  EXPECT_EQ(Marks(), Lines()) << "the one page that the document gets has its footer only";
}

TEST_F(Conforming, ConformingPagesAreOfTheirDocument) {
  Start();
  doc.DrawLine(0, 0, 10, 10);
  ASSERT_TRUE(doc.Create("another")) << "and nothing is taken over into it";
  EXPECT_EQ(Streams((doc.Flush(), SplitLines(*memory->File("another"), "\n"))).size(), 1U);
  EXPECT_EQ(memory->File("another")->find(" l\n"), std::string::npos);
}

/// A paragraph of 14 lines on pages with room for 10, the lowest 12 points of which are the
/// footer's.
void WriteFourteenLines(PDF& doc) {
  ASSERT_TRUE(doc.Create("doc"));
  doc.NewPage(50, 50, 50, 842 - 50 - 100, 255, 255, 255);
  doc.SetFont(kCourier, 10, FontStyleConstants::Regular, {});
  std::string text = "line";
  for (int i = 1; i < 14; ++i) text += " line";
  ASSERT_TRUE(doc.WriteMultiText(text, 0, {}, false, 30));
}

/// How many of them stand on the first page.
std::ptrdiff_t LinesOnFirstPage(const Lines& file) {
  const auto holds = [](std::string_view text) {
    return [text](const std::string& line) { return line.find(text) != std::string::npos; };
  };
  const auto footer = std::find_if(file.begin(), file.end(), holds("(Copyright"));
  EXPECT_EQ(std::count_if(file.begin(), file.end(), holds("(line")), 14);
  return std::count_if(file.begin(), footer, holds("(line"));
}

TEST_F(Classic, OddityParagraphsReachIntoTheFooter) {
  WriteFourteenLines(doc);
  EXPECT_EQ(LinesOnFirstPage(FlushedLines()), 10);
}

TEST_F(Conforming, ConformingParagraphsKeepClearOfTheFooter) {
  WriteFourteenLines(doc);
  EXPECT_EQ(LinesOnFirstPage(FlushedLines()), 8);
}

TEST_F(Classic, OddityLastLinesEndWithABlank) {
  Start();
  ASSERT_TRUE(doc.WriteMultiText("a"));
  ASSERT_TRUE(doc.WriteMultiText(""));
  const auto marks = MarksOfOnlyPage();
  EXPECT_EQ(marks.at(0).at(3), "T* 0 0 0 rg (a ) Tj");
  EXPECT_EQ(marks.at(1).at(3), "T* 0 0 0 rg ( ) Tj");
}

TEST_F(Conforming, ConformingLastLinesEndWithTheirLastWord) {
  Start();
  ASSERT_TRUE(doc.WriteMultiText("a"));
  ASSERT_TRUE(doc.WriteMultiText(""));
  ASSERT_TRUE(doc.WriteMultiText("b "));
  EXPECT_EQ(Marks(), (Lines{"BT", "/F0 8 Tf", "50 784 TD(a)Tj", "0 -16 TD(b)Tj"}))
      << "the empty line takes its height";
}

TEST_F(Classic, OddityJustifiedWordsStandAlone) {
  Start();
  Font(kCourier, 10);
  ASSERT_TRUE(doc.WriteMultiText("a b c ddddd", 0, kNoAlignment, true, 60));
  EXPECT_EQ(MarksOfOnlyPage().size(), 3U + 1);
}

TEST_F(Conforming, ConformingJustifiedWordsAreOneText) {
  Start();
  Font(kCourier, 10);
  ASSERT_TRUE(doc.WriteMultiText("a b \u0159 ddddd", 0, kNoAlignment, true, 60));
  // The words stand at 0, 27 and 54 and are, with their blanks, 12 points wide: 15 points are
  // 1,500/1000 em.
  EXPECT_EQ(Marks(), (Lines{"BT", "50 782 TD", "/F0 10 Tf", "[(a )-1500(b )]TJ", "/F14 10 Tf",
                            "[-1500(\xF8)]TJ", "/F0 10 Tf", "0 -10 TD(ddddd)Tj"}));
  Start();
  Font(kCourier, 10);
  ASSERT_TRUE(doc.WriteMultiText("a \u0159\u00D0 ddddddd", 0, kNoAlignment, true, 60));
  EXPECT_EQ(Marks(), (Lines{"BT", "50 782 TD", "/F0 10 Tf", "[(a )]TJ", "/F14 10 Tf",
                            "[-3600(\xF8)]TJ", "/F0 10 Tf", "[(\xD0)]TJ", "0 -10 TD(ddddddd)Tj"}))
      << "a word in two encodings";
}

/// 57 words "T" of 6.108 points, each 8.608 with its blank: 491 points, and rounded 516.
std::string ManyShortWords() {
  std::string text = "T";
  for (int i = 1; i < 100; ++i) text += " T";
  return text;
}

TEST_F(Classic, OddityJustifiedWordsAreRoundedEach) {
  Start();
  Font(kTimes, 10);
  ASSERT_TRUE(doc.WriteMultiText(ManyShortWords(), 0, kNoAlignment, true));
  std::size_t first_line = 0;
  for (const Lines& mark : MarksOfOnlyPage()) {
    const bool first = mark.size() > 2 && mark[2].ends_with(" 782 Tm");
    if (first) ++first_line;
  }
  EXPECT_EQ(first_line, 56U) << "the last word of the line has no room and is left out";
}

TEST_F(Conforming, ConformingJustifiedWordsAreAddedUpFirst) {
  Start();
  Font(kTimes, 10);
  ASSERT_TRUE(doc.WriteMultiText(ManyShortWords(), 0, kNoAlignment, true));
  const std::string line = Marks().at(3);
  EXPECT_EQ(std::count(line.begin(), line.end(), 'T'), 57 + 1) << "the operator's own T too";
}

std::string DeepBmp(int bits) {
  BmpFile file{.bits = bits, .pixels = {0x1F, 0x7C, 0, 0}};
  if (bits == 32) file.pixels = {1, 2, 3, 4};
  return file.Bytes();
}

TEST_F(Classic, OddityDeepSamplesStayAsTheyAre) {
  for (const int bits : {16, 32}) {
    Start();
    memory->PutFile("deep.bmp", DeepBmp(bits));
    ASSERT_TRUE(doc.DrawPicture("deep.bmp", kNoAlignment, "", EncodingConstants::ASCIIHex));
    const Lines lines = FlushedLines();
    EXPECT_TRUE(Has(lines, bits == 16 ? "007C>" : "03020104>"));
    EXPECT_FALSE(Has(lines, "/ColorSpace /DeviceRGB"));
  }
}

TEST_F(Conforming, ConformingDeepSamplesBecome24Bits) {
  for (const int bits : {16, 32}) {
    Start();
    memory->PutFile("deep.bmp", DeepBmp(bits));
    ASSERT_TRUE(doc.DrawPicture("deep.bmp", kNoAlignment, "", EncodingConstants::ASCIIHex));
    const Lines lines = FlushedLines();
    EXPECT_TRUE(Has(lines, bits == 16 ? "FF00FF>" : "030201>"));
    EXPECT_TRUE(Has(lines, "/ColorSpace /DeviceRGB"));
    EXPECT_TRUE(Has(lines, "/BitsPerComponent 8"));
  }
}

TEST_F(Classic, OddityRunLengthDataEndOtherwise) {
  memory->PutFile("four.bmp", PlainBmp(4, 1, 0x777777));
  Start();
  ASSERT_TRUE(doc.DrawPicture("four.bmp", kNoAlignment, "", EncodingConstants::RunLength));
  // 257 less the run's length, two more than the twelve samples; then the marker.
  EXPECT_TRUE(Has(FlushedLines(), "\xF3\x77\xC7"));
}

TEST_F(Conforming, ConformingRunLengthDataEndAsTheFilterWants) {
  memory->PutFile("four.bmp", PlainBmp(4, 1, 0x777777));
  memory->PutFile("one.bmp", PlainBmp(1, 1, 0x414243));
  Start();
  for (const char* const file : {"four.bmp", "one.bmp"}) {
    ASSERT_TRUE(doc.DrawPicture(file, kNoAlignment, "", EncodingConstants::RunLength));
  }
  const Lines lines = FlushedLines();
  EXPECT_TRUE(Has(lines, "\xF5\x77\x80"));
  EXPECT_TRUE(Has(lines,
                  "\x02"
                  "ABC\x80"))
      << "a literal run";
}

TEST_F(Conforming, ConformingParagraphsOnPagesWithoutRoomAreRefused) {
  ASSERT_TRUE(doc.Create("doc"));
  doc.NewPage(50, 50, 50, 842 - 50 - 30, 255, 255, 255);
  Font(kTimes, 40);
  EXPECT_FALSE(doc.WriteMultiText("x"));
  EXPECT_EQ(Why(), RefusalReason::BeyondBottomMargin);
  Font(kTimes, 30);
  EXPECT_TRUE(doc.WriteMultiText("x")) << "there is room, though only over the footer";
}

/// Keeps apart what each call writes.
class CallsApart final : public MemoryPlatform {
 public:
  std::vector<std::string> written;

  std::error_code WriteOutput(FileHandle file, std::string_view bytes) override {
    written.emplace_back(bytes);
    return MemoryPlatform::WriteOutput(file, bytes);
  }
};

std::vector<std::string> CallsOf(bool conforming) {
  const auto platform = std::make_shared<CallsApart>();
  PDF doc(platform);
  doc.Conforming(conforming);
  doc.Create("doc");
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  doc.Flush();
  return platform->written;
}

TEST_F(Classic, OddityLinesAreWrittenOneByOne) {
  const std::vector<std::string> calls = CallsOf(false);
  EXPECT_GT(calls.size(), 100U) << "fonts and tables alone have more lines";
  for (const std::string& line : calls) {
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    EXPECT_TRUE(line.ends_with("\r\n")) << line;
  }
}

TEST_F(Conforming, ConformingLinesAreWrittenTogether) { EXPECT_EQ(CallsOf(true).size(), 1U); }

}  // namespace
}  // namespace vellumark::tests
