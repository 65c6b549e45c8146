// SPDX-License-Identifier: MIT
//
// RoundHalfEven: a floating value to the nearest whole number, ties to the even one, whatever
// rounding mode the host has set.
#pragma once

#include <cstdint>

#include <vellumark/run_time_error.h>

namespace vellumark::layout {

/// Raises run-time error 6 for a value outside 32 bits, and for a NaN.
constexpr std::int32_t RoundHalfEven(double value) {
  constexpr double kLimit = 2147483647.0;
  if (!(value > -kLimit && value < kLimit)) throw RunTimeError(RunTimeError::Overflow);
  const auto truncated = static_cast<std::int32_t>(value);
  const double rest = value - truncated;  // exact: both are below 2^53
  const bool odd = (truncated & 1) != 0;
  if (rest > 0.5 || (rest == 0.5 && odd)) return truncated + 1;
  if (rest < -0.5 || (rest == -0.5 && odd)) return truncated - 1;
  return truncated;
}

}  // namespace vellumark::layout
