// SPDX-License-Identifier: MIT
#include "tools/classic/run_strokes.h"

#include <gtest/gtest.h>

namespace vellumark::tools {
namespace {

class ClassicStrokes : public ::testing::Test {
 protected:
  std::vector<Stroke> Split(std::string_view text, int right) {
    const Face times{FontNumberConstants::Times, FontStyleConstants::Regular, 10};
    return SplitRun({0, times, GlyphsOf(text)},
                    {0, right, [](char code) { return code == '\\' ? 2 : 1; }}, measure_);
  }

  CodeMeasure measure_;
};

TEST_F(ClassicStrokes, AnAccentIsWrittenRightBehindItsLetterAndCenteredOverIt) {
  const auto strokes = Split("fête", 100);
  ASSERT_EQ(strokes.size(), 3U);
  EXPECT_EQ(strokes[0].codes, "fe");
  EXPECT_EQ(strokes[1].codes, "\xC3");
  EXPECT_EQ(strokes[1].x, 4);  // f 3.33, e 4.44, circumflex 3.33: 3.885
  EXPECT_TRUE(strokes[2].codes.ends_with("te"));
}

TEST_F(ClassicStrokes, BackslashesAtTheEdgeAreCutForTheLibraryAndAllKept) {
  std::size_t count = 0;
  for (const Stroke& stroke : Split(std::string(40, '\\'), 120)) {
    const std::string text = stroke.codes.substr(stroke.codes.find('\\'));
    count += text.size();
    EXPECT_LE(stroke.x + 2.78 * static_cast<double>(stroke.codes.size() + text.size()), 120.5);
  }
  EXPECT_EQ(count, 40U);
}

}  // namespace
}  // namespace vellumark::tools
