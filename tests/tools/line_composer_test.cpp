// SPDX-License-Identifier: MIT
#include "tools/line_composer.h"

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

}  // namespace
}  // namespace vellumark::tools
