// SPDX-License-Identifier: MIT
//
// DocumentTest: a document in memory at a fixed moment, and its file taken apart into lines.
// PdfTest and PsTest are the two that tests derive from.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <vellumark/vellumark.h>

namespace vellumark::tests {

inline constexpr auto kNoAlignment = AlignmentConstants::NoAlignment;
inline constexpr LocalTime kMoment{2026, 11, 15, 16, 5, 9, 0};

using Lines = std::vector<std::string>;

/// The lines of a file, every one of which must end with `line_end`.
inline Lines SplitLines(const std::string& file, std::string_view line_end = "\r\n") {
  Lines lines;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = file.find(line_end, begin)) != std::string::npos;
       begin = end + line_end.size()) {
    lines.push_back(file.substr(begin, end - begin));
  }
  EXPECT_EQ(begin, file.size()) << "the file does not end with a line end";
  return lines;
}

/// The operators of each content stream, in order, without "Q" and "q".
inline std::vector<Lines> Streams(const Lines& file) {
  std::vector<Lines> streams;
  bool inside = false;
  for (const std::string& line : file) {
    if (line == "endstream") inside = false;
    if (inside && line != "Q" && line != "q") streams.back().push_back(line);
    if (line == "stream") {
      inside = true;
      streams.emplace_back();
    }
  }
  return streams;
}

/// A document in memory at a fixed moment.
template <class AnyDocument>
class DocumentTest : public testing::Test {
 protected:
  DocumentTest() { memory->SetTime(kMoment); }

  /// Creates the document and starts a white A4 page with the same margin on every side.
  void Start(std::int16_t margin = 50) {
    ASSERT_TRUE(doc.Create("doc"));
    doc.NewPage(margin, margin, margin, margin, 255, 255, 255);
  }

  void Font(FontNumberConstants number, std::uint8_t height,
            FontStyleConstants style = FontStyleConstants::Regular,
            FontEffectConstants effect = FontEffectConstants::NoFontEffect) {
    doc.SetFont(number, height, style, effect);
  }

  struct Position {
    int x;
    int y;
    bool operator==(const Position&) const = default;
  };

  [[nodiscard]] Position At() const {
    std::int16_t x = 0;
    std::int16_t y = 0;
    doc.GetPosition(x, y);
    return {x, y};
  }

  Lines FlushedLines() {
    doc.Flush();
    return SplitLines(*memory->File("doc"), doc.Conforming() ? "\n" : "\r\n");
  }

  static bool Has(const Lines& lines, std::string_view line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  [[nodiscard]] RefusalReason Why() const { return doc.LastRefusal().reason; }

  /// Compares the flushed file with tests/expected/NAME.txt, which has one output line a line.
  void ExpectFile(const std::string& name) {
    const auto path = std::filesystem::path(VELLUMARK_EXPECTED) / (name + ".txt");
    std::ifstream file(path, std::ios::binary);
    ASSERT_TRUE(file) << path;
    Lines expected;
    for (std::string line; std::getline(file, line);) expected.push_back(line);
    const Lines written = FlushedLines();
    if (written == expected) return;
    std::ofstream actual(name + ".actual.txt", std::ios::binary);
    for (const std::string& line : written) actual << line << '\n';
    EXPECT_EQ(written, expected) << "written to " << name << ".actual.txt";
  }

  std::shared_ptr<MemoryPlatform> memory = std::make_shared<MemoryPlatform>();
  AnyDocument doc{memory};
};

class PdfTest : public DocumentTest<PDF> {
 protected:
  /// Streams of the flushed file, without the page background (first) and the footer (last).
  std::vector<Lines> MarksOfOnlyPage() {
    auto streams = Streams(FlushedLines());
    streams.erase(streams.begin());
    streams.pop_back();
    return streams;
  }
};

class ConformingPdfTest : public PdfTest {
 protected:
  ConformingPdfTest() {
    doc.Conforming(true);
    doc.Compressed(false);
  }

  /// Operators of the flushed file's last page, up to its footer.
  Lines Marks() {
    const Lines lines = FlushedLines();
    const auto footer = std::find_if(lines.rbegin(), lines.rend(), [](const std::string& line) {
      return line.find("(Copyright ") != std::string::npos;
    });
    const auto stream = std::find(footer, lines.rend(), "stream");
    Lines marks(stream.base(), footer.base() - 1);
    for (const std::string_view of_footer : {"/F8 10 Tf", "0 g", "BT"}) {
      if (!marks.empty() && marks.back() == of_footer) marks.pop_back();
    }
    return marks;
  }
};

class PsTest : public DocumentTest<PS> {
 protected:
  /// Lines of the flushed file between the last page comment and the footer.
  Lines MarksOfLastPage() {
    const Lines lines = FlushedLines();
    const auto page = std::find_if(lines.rbegin(), lines.rend(), [](const std::string& line) {
      return line.starts_with("%%Page: ");
    });
    const auto footer = std::find(lines.rbegin(), lines.rend(), "/Times-Roman findfont");
    return {page.base(), footer.base() - 1};
  }
};

}  // namespace vellumark::tests
