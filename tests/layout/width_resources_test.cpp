// SPDX-License-Identifier: MIT
#include "platform/width_resources.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace vellumark::platform {
namespace {

// The widths of resource `id` at the codes first..last.
std::vector<int> Widths(int id, int first, int last) {
  std::vector<int> widths;
  for (int code = first; code <= last; ++code) {
    const auto bytes = WidthResource(id).subspan(static_cast<std::size_t>(2 * code), 2);
    widths.push_back(bytes[0] | (bytes[1] << 8));
  }
  return widths;
}

std::vector<int> Times(std::size_t count, int width) { return std::vector<int>(count, width); }

TEST(WidthResource, OnlyTheNumbers101To110Have512Bytes) {
  for (int id = 101; id <= 110; ++id) EXPECT_EQ(WidthResource(id).size(), 512U) << id;
  for (const int id : {-1, 0, 100, 111}) EXPECT_TRUE(WidthResource(id).empty()) << id;
}

TEST(WidthResource, EachNumberHoldsItsOwnFont) {
  const std::vector<int> codes = {' ', 'A', 'a', 164, 183};  // the last two: fraction, bullet
  const std::vector<std::vector<int>> rows = {
      {101, 278, 667, 556, 167, 350}, {102, 278, 722, 556, 167, 350},
      {105, 250, 722, 444, 167, 350}, {106, 250, 722, 500, 167, 350},
      {107, 250, 611, 500, 167, 350}, {108, 250, 667, 500, 167, 350},
      {109, 250, 722, 631, 167, 494}, {110, 278, 692, 789, 910, 788}};
  for (const auto& row : rows) {
    std::vector<int> widths = {row[0]};
    for (const int code : codes) widths.push_back(Widths(row[0], code, code).front());
    EXPECT_EQ(widths, row);
  }
  EXPECT_EQ(Widths(101, 0, 255), Widths(103, 0, 255));  // oblique is as wide as upright
  EXPECT_EQ(Widths(102, 0, 255), Widths(104, 0, 255));
}

TEST(WidthResource, ATextFontMeasuresACodeWithNoGlyphAsTheSpace) {
  for (int id = 101; id <= 108; ++id) {
    const int space = id <= 104 ? 278 : 250;
    EXPECT_EQ(Widths(id, 0, 31), Times(32, space)) << id;
    EXPECT_EQ(Widths(id, 127, 160), Times(34, space)) << id;
    EXPECT_EQ(Widths(id, 209, 224), Times(16, space)) << id;
  }
}

TEST(WidthResource, SymbolIsASpaceWideBelow32ButNothingAbove126) {
  EXPECT_EQ(Widths(109, 0, 31), Times(32, 250));
  EXPECT_EQ(Widths(109, 127, 160), Times(34, 0));
}

TEST(WidthResource, TheBulletOfSymbolMeasures494AlthoughItPrints460Wide) {
  EXPECT_EQ(Widths(109, 183, 183), Times(1, 494));
}

TEST(WidthResource, OnlyACodeWithNoGlyphIsNarrowerThanTheThinnestDingbat) {
  const auto dingbats = Widths(110, 0, 255);
  EXPECT_EQ(std::count(dingbats.begin(), dingbats.end(), 0), 32 + 1 + 19 + 2);
  for (int id = 101; id <= 110; ++id) {
    for (const int width : Widths(id, 0, 255)) EXPECT_TRUE(width == 0 || width >= 138) << id;
  }
  EXPECT_EQ(Widths(110, 120, 120), Times(1, 138));
}

}  // namespace
}  // namespace vellumark::platform
