// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <string>

#include <vellumark/memory_platform.h>

#include "layout/alignment.h"
#include "layout/arc_angles.h"
#include "layout/color_text.h"
#include "layout/justification.h"
#include "layout/rounding.h"
#include "layout/text_width.h"

namespace vellumark::layout {
namespace {

using enum FontNumberConstants;
using enum FontStyleConstants;

/// The number of the run-time error that `steps` raises; 0 for none.
template <class Steps>
int ErrorOf(const Steps& steps) {
  try {
    steps();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return 0;
}

class Widths : public testing::Test {
 protected:
  int Of(std::string_view text, FontNumberConstants number, std::uint8_t height,
         FontStyleConstants style = Regular) {
    return widths.GetTextWidth(text, {number, height, style, {}}).value();
  }

  MemoryPlatform platform;
  FontWidths widths{platform};
};

TEST_F(Widths, AreRoundedToWholePointsTiesToEven) {
  EXPECT_EQ(Of("", Helvetica, 12), 0);
  EXPECT_EQ(Of("A", Helvetica, 12), 8);   // 8.004
  EXPECT_EQ(Of("aa", Times, 10), 9);      // 8.88
  EXPECT_EQ(Of("  ", Times, 9), 4);       // 4.5
  EXPECT_EQ(Of("      ", Times, 9), 14);  // 13.5
  EXPECT_EQ(Of("x", Courier, 15), 9);
  EXPECT_EQ(Of("xxxx", Courier, 25, BoldItalic), 60);
}

TEST(ShortWidths, OfCodesThatAResourceLacksAreNothing) {
  class ShortResources final : public MemoryPlatform {
   public:
    std::span<const std::uint8_t> WidthResource(int /*id*/) override {
      static constexpr std::array<std::uint8_t, 512> kWidths = [] {
        std::array<std::uint8_t, 512> widths{};
        widths.fill(1);
        return widths;
      }();
      return std::span(kWidths).first(std::size_t{2} * ('A' + 1));
    }
  };
  ShortResources platform;
  EXPECT_EQ(FontWidths(platform).Sum("AB", {Helvetica, 10, Regular, {}}), 257);
}

TEST_F(Widths, OfFontsThatDoNotExistAreNothing) {
  EXPECT_EQ(Of("text", Helvetica, 12, FontStyleConstants{0}), 0);
  EXPECT_EQ(Of("text", Times, 12, FontStyleConstants{5}), 0);
  EXPECT_EQ(Of("text", FontNumberConstants{6}, 12), 0);
  EXPECT_GT(Of("text", Symbol, 12, FontStyleConstants{9}), 0)
      << "Symbol has one face for any style";
}

TEST_F(Widths, TheLargestSumIsTheLastThatStillFits) {
  for (const int height : {0, 8, 9, 10, 11, 12, 13, 25, 71, 72}) {
    for (int width = -3; width <= 1224; ++width) {
      const auto h = static_cast<std::uint8_t>(height);
      const std::int32_t largest = FontWidths::LargestSum(h, width);
      if (largest > 0) {
        ASSERT_LE(FontWidths::InPoints(h, largest), Points(width));
      }
      if (height > 0) {
        ASSERT_GT(FontWidths::InPoints(h, largest + 1), Points(width));
      }
    }
  }
}

TEST_F(Widths, OverflowBeyond16Bits) {
  const std::string text(10000, 'x');
  EXPECT_EQ(ErrorOf([&] { Of(text, Courier, 72); }), RunTimeError::Overflow);
  EXPECT_EQ(Of(text, Courier, 5), 30000);
}

TEST(Rounding, IsToNearestTiesToEvenWithinBounds) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
  EXPECT_EQ(RoundHalfEven(-3.5), -4);
  EXPECT_EQ(RoundHalfEven(-0.75), -1);
  EXPECT_EQ(ErrorOf([] { RoundHalfEven(3e9); }), RunTimeError::Overflow);
}

TEST(Alignment, HalvesTruncateTowardZero) {
  using enum AlignmentConstants;
  EXPECT_EQ(GetAlignmentOffset(101, 50, Center), 25);
  EXPECT_EQ(GetAlignmentOffset(50, 101, Center), -25);
  EXPECT_EQ(GetAlignmentOffset(50, 101, RightAlign), -51);
  EXPECT_EQ(GetAlignmentOffset(50, 10, LeftAlign), 0);
  EXPECT_EQ(GetAlignmentOffset(50, 10, AlignmentConstants{7}), 0);
  EXPECT_EQ(ErrorOf([] { GetAlignmentOffset(-32768, 1, RightAlign); }), RunTimeError::Overflow);
}

/// Positions of words of so many points in a font of 10 points, "x" in front if the result was
/// false.
std::string Positions(std::initializer_list<double> words, Points width,
                      Rounding rounding = Rounding::Words) {
  std::vector<std::int32_t> sums;
  for (const double word : words) sums.push_back(static_cast<std::int32_t>(100 * word));
  std::vector<Points> positions;
  std::string list;
  if (!JustifyWords(sums, width, 10, rounding, positions)) list = "x";
  for (const Points position : positions) list.append(" ").append(std::to_string(position.value()));
  return list;
}

TEST(Justification, HandsOutTheSpareWidthFromTheLeft) {
  EXPECT_EQ(Positions({18, 18, 12}, 48), " 0 18 36") << "a full line keeps its positions";
  EXPECT_EQ(Positions({18, 18, 12}, 40), " 0 18 36") << "and so does one that overflows";
  EXPECT_EQ(Positions({18, 18, 12}, 49), " 0 19 37");
  EXPECT_EQ(Positions({18, 18, 12}, 55), " 0 22 43");
  EXPECT_EQ(Positions({12, 6, 6}, 24), " 0 12 18") << "a word of a blank alone";
}

TEST(Justification, WordsThatFitAsTheyAreMayNotFitRounded) {
  EXPECT_EQ(Positions({2.6, 2.6, 2.6, 2.6, 2.6}, 13), " 0 3 6 9 12") << "and the end is at 15";
  EXPECT_EQ(Positions({2.6, 2.6, 2.6, 2.6, 2.6}, 13, Rounding::Sums), " 0 3 5 8 10");
  EXPECT_EQ(Positions({2.6, 2.6, 2.6, 2.6, 2.6}, 22, Rounding::Sums), " 0 6 10 15 19");
}

TEST(Justification, OneWordIsNeverStretched) { EXPECT_EQ(Positions({24}, 100), "x 0"); }

TEST(ColorText, IsThreeFractionsWithAPoint) {
  EXPECT_EQ(FormatColor(255, 128, 0).view(), "1 0.502 0");
  EXPECT_EQ(FormatColor(51, 64, 200).view(), "0.200 0.251 0.784");
  EXPECT_EQ(FormatColor(1, 127, 254).view(), "0.004 0.498 0.996");
}

TEST(ColorText, ReadsPointsAndCommasAndReportsWhatItCannotRead) {
  Rgb rgb;
  ParseColor("0,502 1 0.004 9", rgb);
  EXPECT_EQ(std::tuple(rgb.red, rgb.green, rgb.blue), std::tuple(128, 255, 1));
  EXPECT_EQ(ErrorOf([&] { ParseColor("", rgb); }), RunTimeError::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { ParseColor("0 0", rgb); }), RunTimeError::SubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { ParseColor("0  0", rgb); }), RunTimeError::TypeMismatch);
  EXPECT_EQ(ErrorOf([&] { ParseColor("0 2 0", rgb); }), RunTimeError::Overflow);
}

TEST(ArcAngles, AreExchangedFirstAndReducedThen) {
  const auto normalized = [](float th1, float th2) {
    NormalizeAngles(th1, th2);
    return std::pair(th1, th2);
  };
  EXPECT_EQ(normalized(400, 30), std::pair(30.0F, 40.0F));
  EXPECT_EQ(normalized(720, 0), std::pair(0.0F, 360.0F));
  EXPECT_EQ(normalized(300, 400), std::pair(300.0F, 40.0F));
  EXPECT_EQ(normalized(-90, 45), std::pair(-90.0F, 45.0F));
}

}  // namespace
}  // namespace vellumark::layout
