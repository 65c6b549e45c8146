// SPDX-License-Identifier: MIT
//
// Real: a PostScript real number, as a part of a LineBuffer line.
//
//     lines.Append(Real(22.5F), " arc");            // 22.5 arc
#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>

#include <vellumark/run_time_error.h>

namespace vellumark::ps {

/// A real number with at most seven significant digits, a point whatever the locale, and no
/// trailing zeros; an exponent only below 0.0001 and from 10,000,000.
class Real {
 public:
  /// Raises run-time error 6 for an infinite value and for NaN. Minus zero is zero.
  explicit Real(float value) : value_(value + 0.0F) {
    if (!std::isfinite(value)) throw RunTimeError(RunTimeError::Overflow);
  }

  [[nodiscard]] static std::size_t MaxSize() noexcept { return 16; }
  char* Write(char* to) const noexcept {
    return std::to_chars(to, to + MaxSize(), value_, std::chars_format::general, 7).ptr;
  }

 private:
  float value_;
};

}  // namespace vellumark::ps
