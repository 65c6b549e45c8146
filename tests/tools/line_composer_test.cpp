// SPDX-License-Identifier: MIT
#include "tools/line_composer.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

using TextRun = Run;  // the fixture has a Run of its own

class LineComposition : public ::testing::Test {
 protected:
  std::vector<Line> Compose(std::string_view text, int width, bool justify) {
    const MarkdownTree tree(text);
    const std::vector<Word> words =
        MakeWords(ReadInlines(cmark_node_first_child(tree.root())), faces_, measure_);
    return LineComposer(measure_, width, justify).Compose(words);
  }

  std::vector<Line> ComposeParagraph(std::string_view text, int width, bool justify) {
    const MarkdownTree tree(text);
    return LineComposer(measure_, width, justify)
        .ComposeParagraph(
            MakeWords(ReadInlines(cmark_node_first_child(tree.root())), faces_, measure_));
  }

  int End(const TextRun& run) { return run.x + ToPoints(measure_.Width(run.face, run.text)); }

  LibraryMeasure measure_;
  BlockFaces faces_{{FontNumberConstants::Times, FontStyleConstants::Regular, 10},
                    {FontNumberConstants::Courier, FontStyleConstants::Regular, 10}};
};

TEST_F(LineComposition, GlyphWidthsAreThePublishedOnes) {
  const Face bold{FontNumberConstants::Helvetica, FontStyleConstants::Bold, 12};
  EXPECT_EQ(measure_.Width(bold, "A"), 722 * 12);
  EXPECT_EQ(measure_.Width(faces_.text, "—Ő\\"), (1000 + 722 + 278) * 10);
  EXPECT_EQ(measure_.Width(faces_.code, "ab "), 18000);
}

TEST_F(LineComposition, APlainRaggedLineIsOneRun) {
  const auto lines = Compose("one two  three", 200, false);
  ASSERT_EQ(lines.size(), 1U);
  ASSERT_EQ(lines[0].runs.size(), 1U);
  EXPECT_EQ(lines[0].runs[0].text, "one two three");
}

TEST_F(LineComposition, JustifiedLinesEndAtTheRightEdgeButForTheLast) {
  // "aa" is 8.88 points wide, 9 rounded, with its blank 11.38, 11 rounded; three words in 40 points
  // leave 40 - 11 - 11 - 9 = 9 for two gaps: 5 for the first, 4 for the second.
  const auto lines = Compose("aa aa aa aa", 40, true);
  ASSERT_EQ(lines.size(), 2U);
  ASSERT_EQ(lines[0].runs.size(), 3U);
  EXPECT_EQ(lines[0].runs[1].x, 16);
  EXPECT_EQ(lines[0].runs[2].x, 31);
  EXPECT_EQ(End(lines[0].runs[2]), 40);
  EXPECT_EQ(lines[1].runs[0].x, 0);
}

TEST_F(LineComposition, NoRunReachesOverTheWidth) {
  const std::string text =
      "Wörter in **fett**, *kursiv* und `code`, dazu https://example.org/a/b/c/d/e/f/g/h/i/j und "
      "Donaudampfschifffahrtsgesellschaftskapitänsmützenabzeichen, il fait été à Noël. ";
  for (int width = 60; width < 240; ++width) {
    for (const bool justify : {false, true}) {
      for (const Line& line : Compose(text + text, width, justify)) {
        for (const TextRun& run : line.runs) EXPECT_LE(End(run), width + 1) << run.text;
      }
    }
  }
}

TEST_F(LineComposition, AWideGapIsLeftRagged) {
  const auto lines = Compose("a b wwwwwwwwwwwwwwwwwwww", 150, true);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].runs.size(), 1U);
}

TEST_F(LineComposition, AWordWiderThanTheLineIsBrokenNotLost) {
  std::string joined;
  const std::string word(300, 'm');
  for (const Line& line : Compose(word, 100, true)) joined += line.runs.at(0).text;
  EXPECT_EQ(joined, word);
  const auto lines = Compose("https://example.org/path/andmoreofit", 100, true);
  EXPECT_TRUE(lines.at(0).runs.at(0).text.ends_with('/'));
}

TEST_F(LineComposition, AMarkStaysWithItsLetter) {
  for (const Line& line : Compose(std::string("e\xCC\x81") + std::string(300, 'm'), 10, false)) {
    EXPECT_FALSE(line.runs.at(0).text.starts_with('\xCC'));
  }
  EXPECT_EQ(measure_.Width(faces_.text, "e\xCC\x81"), measure_.Width(faces_.text, "é"));
  EXPECT_EQ(measure_.Width(faces_.text, "W\xCC\xA7"), measure_.Width(faces_.text, "W?"));
}

/// The words of each line from the left to the right.
std::vector<std::string> Seen(std::vector<Line> lines) {
  std::vector<std::string> seen;
  for (Line& line : lines) {
    std::stable_sort(line.runs.begin(), line.runs.end(),
                     [](const TextRun& a, const TextRun& b) { return a.x < b.x; });
    std::string& words = seen.emplace_back();
    for (const TextRun& run : line.runs) words.append(words.empty() ? "" : " ").append(run.text);
  }
  return seen;
}

TEST_F(LineComposition, TextFromRightToLeftBeginsAtTheRightAndKeepsOtherWordsInOrder) {
  using Words = std::vector<std::string>;
  EXPECT_EQ(Seen(ComposeParagraph("א ב ג", 100, false)), Words{"ג ב א"});
  EXPECT_EQ(Seen(ComposeParagraph("א one - two 3 ב", 200, false)), Words{"ב one - two 3 א"});
  EXPECT_EQ(Seen(ComposeParagraph("(א) - 1 2 - **b**ב ג", 200, false)), Words{"ג b ב - 1 2 - (א)"});
  EXPECT_EQ(Seen(ComposeParagraph("א one two. 3, ב", 200, false)), Words{"ב , one two. 3 א"});
  EXPECT_EQ(Seen(ComposeParagraph("1 a א", 100, false)), Words{"1 a א"})
      << "the first letter decides";
  EXPECT_EQ(Seen(ComposeParagraph("א one two three ב", 50, false)), (Words{"one two א", "ב three"}))
      << "each line has its own order";
  for (const bool justify : {false, true}) {
    const auto lines = ComposeParagraph("א aaa ב aaa ג aaa ד aaa", 70, justify);
    ASSERT_GT(lines.size(), 1U);
    EXPECT_NEAR(End(lines[0].runs.front()), 70, 1) << "the first word ends at the right edge";
    int leftmost = 70;
    for (const TextRun& run : lines[0].runs) leftmost = std::min(leftmost, run.x);
    EXPECT_EQ(leftmost == 0, justify);
  }
}

}  // namespace
}  // namespace vellumark::tools
