// SPDX-License-Identifier: MIT
#include "tools/table_columns.h"

#include <gtest/gtest.h>
#include <numeric>

namespace vellumark::tools {
namespace {

using Widths = std::vector<int>;

TEST(TableColumns, AreAsWideAsTheirTextIfThereIsRoom) {
  EXPECT_EQ(ChooseWidths({{10, 20}, {30, 40}}, 60), (Widths{20, 40}));
  EXPECT_EQ(ChooseWidths({{10, 20}, {30, 40}}, 600), (Widths{20, 40}));
}

TEST(TableColumns, ShareWhatTheirLongestWordsLeave) {
  // 80 points are left for needs of 100 and 300.
  EXPECT_EQ(ChooseWidths({{10, 110}, {10, 310}}, 100), (Widths{30, 70}));
  EXPECT_EQ(ChooseWidths({{40, 200}, {60, 60}}, 200), (Widths{140, 60}));
}

TEST(TableColumns, BreakLongWordsBeforeShortOnes) {
  EXPECT_FALSE(FitsUnbroken({{20, 20}, {900, 900}}, 200));
  EXPECT_TRUE(FitsUnbroken({{20, 90}, {180, 900}}, 200));
  EXPECT_EQ(ChooseWidths({{20, 20}, {900, 900}}, 200), (Widths{20, 180}));
}

TEST(TableColumns, NeverNeedMoreThanTheRoom) {
  for (int room = 7; room < 400; room += 13) {
    const Widths widths = ChooseWidths({{3, 5}, {50, 70}, {200, 2000}, {1, 1}, {90, 91}}, room);
    EXPECT_LE(std::accumulate(widths.begin(), widths.end(), 0), room);
    for (const int width : widths) EXPECT_GE(width, 1);
  }
}

TEST(TableColumns, GoBelowIfThereAreTooMany) {
  const std::vector<ColumnNeed> needs(10, {100, 100});
  EXPECT_EQ(ColumnsSideBySide(needs, 0, 40, 170), 4U);
  EXPECT_EQ(ColumnsSideBySide(needs, 8, 40, 170), 2U);
  EXPECT_EQ(ColumnsSideBySide(needs, 0, 40, 30), 1U);
}

}  // namespace
}  // namespace vellumark::tools
