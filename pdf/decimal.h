// SPDX-License-Identifier: MIT
//
// Decimal: a number of PDF with a few decimal places, as a part of a LineBuffer line.
//
//     lines.Append(Decimal{72.5}, ' ', Decimal{1.0 / 3}, " m");        // 72.5 0.333 m
//     Decimal<2>{-0.001}                                               // 0
//
// At most `kPlaces` places, rounded to the nearest (ties away from zero), no trailing zeros, no
// exponent, never "-0", a point whatever the locale. Values beyond a thousand million either way
// are written as that, and NaN as 0: a path stays a path.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdint>

namespace vellumark::pdf {

template <int kPlaces = 3>
class Decimal {
  static_assert(kPlaces >= 0 && kPlaces <= 6);

 public:
  explicit Decimal(double value) noexcept : scaled_(Scaled(value)) {}

  /// Digits before and behind the point, the sign and the point.
  [[nodiscard]] static constexpr std::size_t MaxSize() noexcept { return 12 + kPlaces; }

  char* Write(char* to) const noexcept {
    auto rest = static_cast<std::uint64_t>(scaled_);
    if (scaled_ < 0) {
      *to++ = '-';
      rest = 0 - rest;
    }
    const auto whole = static_cast<std::uint32_t>(rest / kScale);
    auto fraction = static_cast<std::uint32_t>(rest % kScale);
    to = WriteWhole(whole, to);
    if (fraction == 0) return to;
    *to++ = '.';
    for (std::uint32_t place = kScale / 10; fraction != 0; place /= 10) {
      *to++ = static_cast<char>('0' + fraction / place);
      fraction %= place;
    }
    return to;
  }

 private:
  static constexpr std::uint32_t kScale = [] {
    std::uint32_t scale = 1;
    for (int i = 0; i < kPlaces; ++i) scale *= 10;
    return scale;
  }();

  static std::int64_t Scaled(double value) noexcept {
    constexpr double kLargest = 1e9;
    if (!(value == value)) return 0;
    if (value > kLargest) value = kLargest;
    if (value < -kLargest) value = -kLargest;
    return static_cast<std::int64_t>(value * kScale + (value < 0 ? -0.5 : 0.5));
  }

  // Most coordinates have up to three digits.
  static char* WriteWhole(std::uint32_t whole, char* to) noexcept {
    if (whole >= 1000) return std::to_chars(to, to + 10, whole).ptr;
    if (whole >= 100) *to++ = static_cast<char>('0' + whole / 100);
    if (whole >= 10) *to++ = static_cast<char>('0' + whole / 10 % 10);
    *to++ = static_cast<char>('0' + whole % 10);
    return to;
  }

  std::int64_t scaled_;
};

Decimal(double)->Decimal<3>;

}  // namespace vellumark::pdf
