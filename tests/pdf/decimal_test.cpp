// SPDX-License-Identifier: MIT
#include "pdf/decimal.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace vellumark::pdf {
namespace {

template <class Number>
std::string Written(const Number& number) {
  std::array<char, 32> text{};
  const char* const end = number.Write(text.data());
  EXPECT_LE(static_cast<std::size_t>(end - text.data()), Number::MaxSize());
  return std::string(text.data(), static_cast<std::size_t>(end - text.data()));
}

TEST(Decimal, HasNoDigitTooMany) {
  struct Case {
    double value;
    const char* text;
  };
  constexpr Case kCases[] = {
      {0, "0"},
      {-0.0, "0"},
      {0.0004, "0"},
      {-0.0004, "0"},
      {0.0005, "0.001"},
      {-0.0005, "-0.001"},
      {0.1, "0.1"},
      {0.05, "0.05"},
      {7, "7"},
      {10, "10"},
      {99.9999, "100"},
      {100.02, "100.02"},
      {1224.5, "1224.5"},
      {-32768, "-32768"},
      {1.0 / 3, "0.333"},
      {-2.0 / 3, "-0.667"},
      {1000, "1000"},
      {999.9994, "999.999"},
      {1e300, "1000000000"},
      {-1e10, "-1000000000"},
  };
  for (const Case& one : kCases) EXPECT_EQ(Written(Decimal(one.value)), one.text) << one.value;
  EXPECT_EQ(Written(Decimal(std::numeric_limits<double>::quiet_NaN())), "0");
  EXPECT_EQ(Written(Decimal<0>(2.5)), "3");
  EXPECT_EQ(Written(Decimal<6>(-999999999.1234567)), "-999999999.123457");
}

TEST(Decimal, ReadsBackWithinHalfAUnit) {
  for (int i = -40'000; i <= 40'000; i += 7) {
    const double value = i * 0.0371;
    const std::string text = Written(Decimal(value));
    ASSERT_NEAR(std::strtod(text.c_str(), nullptr), value, 0.000501) << text;
    ASSERT_FALSE(text.find('.') != std::string::npos && text.back() == '0') << text;
  }
}

}  // namespace
}  // namespace vellumark::pdf
