// SPDX-License-Identifier: MIT
#include "layout/color_text.h"

#include <algorithm>
#include <charconv>
#include <string>

#include <vellumark/run_time_error.h>

#include "layout/rounding.h"

namespace vellumark::layout {
namespace {

struct Fraction {
  std::array<char, 8> text{};  // zero behind the text
  std::uint8_t size = 0;
};

constexpr std::array<Fraction, 256> kFractions = [] {
  std::array<Fraction, 256> fractions{};
  for (int byte = 0; byte < 256; ++byte) {
    const int thousandths = (byte * 1000 * 2 + 255) / (2 * 255);  // no byte falls on a tie
    Fraction& fraction = fractions[static_cast<std::size_t>(byte)];
    fraction.text[0] = static_cast<char>('0' + thousandths / 1000);
    fraction.size = 1;
    if (thousandths % 1000 == 0) continue;
    fraction.text[1] = '.';
    fraction.text[2] = static_cast<char>('0' + thousandths / 100 % 10);
    fraction.text[3] = static_cast<char>('0' + thousandths / 10 % 10);
    fraction.text[4] = static_cast<char>('0' + thousandths % 10);
    fraction.size = 5;
  }
  return fractions;
}();

std::uint8_t ParseFraction(std::string_view part) {
  std::string number(part);
  std::replace(number.begin(), number.end(), ',', '.');
  float fraction = 0;
  const char* const end = number.data() + number.size();
  const auto [stop, error] = std::from_chars(number.data(), end, fraction);
  if (error == std::errc::result_out_of_range) throw RunTimeError(RunTimeError::Overflow);
  if (error != std::errc{} || stop != end) throw RunTimeError(RunTimeError::TypeMismatch);
  const std::int32_t byte = RoundHalfEven(fraction * 255.0F);
  if (byte < 0 || byte > 255) throw RunTimeError(RunTimeError::Overflow);
  return static_cast<std::uint8_t>(byte);
}

}  // namespace

void ColorText::Set(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept {
  text_ = {};
  char* end = text_.data();
  const auto append = [&end](std::uint8_t byte) {
    std::memcpy(end, kFractions[byte].text.data(), kFractions[byte].text.size());
    end += kFractions[byte].size;
  };
  append(red);
  *end++ = ' ';
  append(green);
  *end++ = ' ';
  append(blue);
  size_ = static_cast<std::uint8_t>(end - text_.data());
  gray_ = red == green && green == blue;
}

void ParseColor(std::string_view text, Rgb& rgb) {
  bool more = !text.empty();
  for (std::uint8_t* const part : {&rgb.red, &rgb.green, &rgb.blue}) {
    if (!more) throw RunTimeError(RunTimeError::SubscriptOutOfRange);
    const std::size_t blank = text.find(' ');
    *part = ParseFraction(text.substr(0, blank));
    more = blank != std::string_view::npos;
    if (more) text.remove_prefix(blank + 1);
  }
}

}  // namespace vellumark::layout
