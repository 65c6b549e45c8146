// SPDX-License-Identifier: MIT
#include "tools/line_composer.h"

#include <gtest/gtest.h>

#include "tools/pdf_output.h"
#include "tools/run_strokes.h"

namespace vellumark::tools {
namespace {

using TextRun = Run;  // the fixture has a Run of its own

class LineComposition : public ::testing::Test {
 protected:
  std::vector<Line> Compose(std::string_view text, int width, bool justify) {
    const MarkdownTree tree(text);
    const std::vector<Word> words =
        MakeWords(ReadInlines(cmark_node_first_child(tree.root())), faces_, measure_,
                  [](const Span&, std::size_t, char32_t) {});
    return LineComposer(measure_, width, justify).Compose(words);
  }

  int End(const TextRun& run) {
    return run.x + ToPoints(measure_.Width(run.face, run.glyphs.codes));
  }

  GlyphMeasure measure_;
  BlockFaces faces_{{FontNumberConstants::Times, FontStyleConstants::Regular, 10},
                    {FontNumberConstants::Courier, FontStyleConstants::Regular, 10}};
};

TEST_F(LineComposition, GlyphWidthsAreThePublishedOnes) {
  const Face bold{FontNumberConstants::Helvetica, FontStyleConstants::Bold, 12};
  EXPECT_EQ(measure_.GlyphWidth(bold, 'A'), 722);
  EXPECT_EQ(measure_.GlyphWidth(faces_.text, '\xD0'), 1000);  // em dash
  EXPECT_EQ(measure_.GlyphWidth(faces_.text, '\\'), 278);
  EXPECT_EQ(measure_.Width(faces_.code, "ab "), 18000);
}

TEST_F(LineComposition, APlainRaggedLineIsOneRun) {
  const auto lines = Compose("one two  three", 200, false);
  ASSERT_EQ(lines.size(), 1U);
  ASSERT_EQ(lines[0].runs.size(), 1U);
  EXPECT_EQ(lines[0].runs[0].glyphs.codes, "one two three");
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
        for (const TextRun& run : line.runs) EXPECT_LE(End(run), width + 1) << run.glyphs.codes;
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
  for (const Line& line : Compose(word, 100, true)) joined += line.runs.at(0).glyphs.codes;
  EXPECT_EQ(joined, word);
  const auto lines = Compose("https://example.org/path/andmoreofit", 100, true);
  EXPECT_TRUE(lines.at(0).runs.at(0).glyphs.codes.ends_with('/'));
}

TEST_F(LineComposition, AnAccentIsWrittenRightBehindItsLetterAndCenteredOverIt) {
  const TextRun run = Compose("fête", 100, false).at(0).runs.at(0);
  const PdfOutput output(std::make_shared<MemoryPlatform>());
  const auto strokes = SplitRun(run, {0, 100, &output}, measure_);
  ASSERT_EQ(strokes.size(), 3U);
  EXPECT_EQ(strokes[0].codes, "fe");
  EXPECT_EQ(strokes[1].codes, "\xC3");
  EXPECT_EQ(strokes[1].x, 4);  // f 3.33, e 4.44, circumflex 3.33: 3.885
  EXPECT_TRUE(strokes[2].codes.ends_with("te"));
}

TEST_F(LineComposition, BackslashesAtTheEdgeAreCutForTheLibraryAndAllKept) {
  const TextRun run = Compose(std::string(40, '\\'), 112, false).at(0).runs.at(0);
  const PdfOutput output(std::make_shared<MemoryPlatform>());
  std::size_t count = 0;
  for (const Stroke& stroke : SplitRun(run, {0, 120, &output}, measure_)) {
    const std::string text = stroke.codes.substr(stroke.codes.find('\\'));
    count += text.size();
    EXPECT_LE(stroke.x + ToPoints(measure_.Width(run.face, stroke.codes + text)), 120);
  }
  EXPECT_EQ(count, run.glyphs.codes.size());
}

}  // namespace
}  // namespace vellumark::tools
