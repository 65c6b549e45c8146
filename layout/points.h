// SPDX-License-Identifier: MIT
//
// Points: a length or coordinate in whole points (1/72 inch), 16 bits wide and checked.
//
// Sums and differences outside -32,768 to 32,767 raise run-time error 6, so that the code of an
// operation needs no `if` about arithmetic:
//
//     const Points right = margin_left + x + width;   // throws RunTimeError::Overflow
//
// Comparisons never fail. Any integer converts to Points under the same check.
#pragma once

#include <compare>
#include <cstdint>
#include <limits>

#include <vellumark/run_time_error.h>

namespace vellumark::layout {

class Points {
 public:
  constexpr Points() = default;

  // Implicit: a plain number of points reads as one.
  constexpr Points(int value) : value_(static_cast<std::int16_t>(value)) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
      throw RunTimeError(RunTimeError::Overflow);
    }
  }

  [[nodiscard]] constexpr std::int16_t value() const noexcept { return value_; }

  friend constexpr Points operator+(Points a, Points b) { return {a.value_ + b.value_}; }
  friend constexpr Points operator-(Points a, Points b) { return {a.value_ - b.value_}; }

  /// Truncates toward zero; `divisor` is not 0.
  friend constexpr Points operator/(Points a, int divisor) { return {a.value_ / divisor}; }

  friend constexpr auto operator<=>(Points a, Points b) noexcept = default;

 private:
  std::int16_t value_ = 0;
};

}  // namespace vellumark::layout
