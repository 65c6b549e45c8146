// SPDX-License-Identifier: MIT
#include <algorithm>
#include <functional>
#include <set>
#include <span>
#include <zlib.h>

#include "fuzz/written_file.h"
#include "tests/bmp_file.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

class LongDocuments : public PdfTest {
 protected:
  /// Every object named by the cross-reference table, the pages and the catalog stands in the file,
  /// once.
  void ExpectWhole(const Lines& lines) {
    std::set<long> objects;
    for (const std::string& line : lines) {
      if (!line.ends_with(" 0 obj")) continue;
      EXPECT_TRUE(objects.insert(std::stol(line)).second) << line;
    }
    const auto size = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
      return line.starts_with("/Size ");
    });
    ASSERT_NE(size, lines.end());
    EXPECT_EQ(*objects.rbegin() + 1, std::stol(size->substr(6)));
    EXPECT_EQ(static_cast<long>(objects.size()), *objects.rbegin());
    EXPECT_EQ(lines.back(), "%%EOF");
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "endobj"), static_cast<long>(objects.size()));
  }
};

TEST_F(LongDocuments, EveryLineReachesTheFileBeyond32768) {
  Start();
  for (int i = 0; i < 5000; ++i) ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));
  const Lines lines = FlushedLines();
  EXPECT_GT(lines.size(), 65536U);
  ExpectWhole(lines);
}

TEST_F(LongDocuments, RefuseTheMarkThatWouldNotLeaveNumbersForTheEnd) {
  Start();
  // 17 fixed objects and the background's two; four are kept for footer, page and catalog.
  const int room = (32767 - 19 - 4) / 2;
  for (int i = 0; i < room; ++i) ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));
  EXPECT_FALSE(doc.DrawLine(0, 0, 1, 1));
  EXPECT_FALSE(doc.DrawRectangle(0, 0, 1, 1));
  EXPECT_FALSE(doc.DrawCircle(5, 5, 1));
  EXPECT_FALSE(doc.DrawArc(5, 5, 1, 0, 90));
  EXPECT_FALSE(doc.WriteBookmark("b"));
  EXPECT_FALSE(doc.WriteText("x"));
  EXPECT_EQ(doc.LastRefusal().sentence,
            "the call needs more object numbers than the 0 that are free; flush this document and "
            "start another one");
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  EXPECT_EQ(Why(), RefusalReason::NoObjectNumbersLeft);
  const Lines lines = FlushedLines();
  ExpectWhole(lines);
  EXPECT_TRUE(Has(lines, "/Size 32768"));
  EXPECT_TRUE(Has(lines, "/Count 1"));
}

TEST_F(LongDocuments, ACompositeCallIsTakenBackWhole) {
  Start();
  for (int i = 0; i < 16370; ++i) ASSERT_TRUE(doc.DrawLine(0, 0, 1, 1));  // four numbers are left
  doc.SetPosition(7, 700);
  doc.SetDash("1 2");
  Font(FontNumberConstants::Courier, 10, FontStyleConstants::Regular,
       FontEffectConstants::Underline);
  EXPECT_FALSE(doc.WriteTitle("bullet, text and underline need six"));
  EXPECT_EQ(Why(), RefusalReason::NoObjectNumbersLeft);
  EXPECT_FALSE(doc.WriteMultiText("three lines need a new page", 0, kNoAlignment, true, 60));
  EXPECT_EQ(Why(), RefusalReason::NoObjectNumbersLeft);
  EXPECT_EQ(At(), (Position{7, 700}));
  EXPECT_EQ(std::pair(doc.GetDash(), doc.GetFillStyle()), std::pair(std::string("1 2"), false));
  EXPECT_TRUE(doc.WriteMultiText("one")) << "one line with its underline needs four";
  const Lines lines = FlushedLines();
  ExpectWhole(lines);
  EXPECT_EQ(Streams(lines).size(), 1U + 16370 + 2 + 1);
}

/// What needs several numbers is drawn if they are there, and otherwise leaves the rest of the
/// document whole.
TEST(LongDocumentsAtTheLimit, PicturesTitlesAndParagraphsAreWholeOrRefused) {
  struct Case {
    const char* what;
    int needs;  // object numbers
    std::function<bool(PDF&)> call;
  };
  const std::string gray = BmpFile{.bits = 8, .pixels = {0, 0, 0, 0}}.Bytes();
  const auto bytes = [](const std::string& file) {
    return std::span(reinterpret_cast<const std::uint8_t*>(file.data()), file.size());
  };
  const std::string colors = PlainBmp(1, 1);
  const Case cases[] = {
      {"24 bits", 4, [&](PDF& doc) { return doc.DrawPicture(bytes(colors)); }},
      {"24 bits, linked", 5,
       [&](PDF& doc) { return doc.DrawPicture(bytes(colors), kNoAlignment, "http://x"); }},
      {"8 bits", 6, [&](PDF& doc) { return doc.DrawPicture(bytes(gray)); }},
      {"a text", 2, [](PDF& doc) { return doc.WriteText("x"); }},
      {"a text, linked", 3,
       [](PDF& doc) { return doc.WriteText("x", false, 0, kNoAlignment, "http://x"); }},
      {"a bookmark", 2, [](PDF& doc) { return doc.WriteBookmark("x"); }},
      {"a title", 4, [](PDF& doc) { return doc.WriteTitle("x"); }},
      {"two lines", 4,
       [](PDF& doc) { return doc.WriteMultiText("a b", 0, kNoAlignment, false, 11); }},
      {"three words", 6,
       [](PDF& doc) { return doc.WriteMultiText("a b c d", 0, kNoAlignment, true, 28); }},
  };
  for (const Case& c : cases) {
    for (int left = c.needs - 1; left <= c.needs; ++left) {
      const auto memory = std::make_shared<MemoryPlatform>();
      PDF doc(memory);
      doc.Create("doc");
      doc.NewPage(50, 50, 50, 50, 255, 255, 255);
      const int linked = left % 2 == 0 ? 0 : 3;  // a line takes two numbers
      if (linked != 0) doc.WriteText("", false, 0, kNoAlignment, "http://x");
      for (int i = 0; i < (32767 - 19 - 4 - left - linked) / 2; ++i) doc.DrawLine(0, 0, 1, 1);
      EXPECT_EQ(c.call(doc), left >= c.needs) << c.what << " with " << left << " numbers left";
      doc.Flush();
      EXPECT_EQ(doc.LastRefusal().sentence, "") << c.what;
      EXPECT_EQ(fuzz::FaultOfClassicPdf(*memory->File("doc")), "") << c.what << ", " << left;
    }
  }
}

TEST_F(LongDocuments, PagesGoOnUntilTheNumbersEnd) {
  Start();
  int pages = 1;
  for (;; ++pages) {
    doc.NewPage(0, 0, 0, 0, 255, 255, 255);
    if (Why() != RefusalReason::None) break;
  }
  EXPECT_EQ(pages, 1 + (32767 - 19 - 4) / 5);
  const Lines lines = FlushedLines();
  ExpectWhole(lines);
  EXPECT_TRUE(Has(lines, "/Count " + std::to_string(pages)));
}

/// The data of the longest stream.
std::string LongestStream(const std::string& file) {
  std::string longest;
  for (std::size_t at = 0; (at = file.find("\nstream\n", at)) != std::string::npos;) {
    at += 8;
    const std::size_t end = file.find("\nendstream", at);
    if (end - at > longest.size()) longest = file.substr(at, end - at);
  }
  return longest;
}

TEST_F(LongDocuments, AConformingPageMayBeOfAnyLength) {
  doc.Conforming(true);
  std::string pages[2];
  for (const bool compressed : {false, true}) {
    doc.Compressed(compressed);
    Start();
    for (int i = 0; i < 9000; ++i) {
      ASSERT_TRUE(doc.DrawLine(0, 0, static_cast<std::int16_t>(i % 400),
                               static_cast<std::int16_t>(i / 25)));
    }
    doc.Flush();
    pages[compressed ? 1 : 0] = LongestStream(*memory->File("doc"));
  }
  EXPECT_GT(pages[0].size(), std::size_t{2} << 16U);
  std::string inflated(pages[0].size() + 1, '\0');
  uLongf size = inflated.size();
  ASSERT_EQ(::uncompress(reinterpret_cast<Bytef*>(inflated.data()), &size,
                         reinterpret_cast<const Bytef*>(pages[1].data()), pages[1].size()),
            Z_OK);
  inflated.resize(size);
  EXPECT_TRUE(inflated == pages[0] || inflated == pages[0] + "\n");
  EXPECT_EQ(std::count(inflated.begin(), inflated.end(), 'S'), 9000);
}

}  // namespace
}  // namespace vellumark::tests
