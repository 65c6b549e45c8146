// SPDX-License-Identifier: MIT
//
// Number: an integer parameter that never wraps.
//
// Positions and lengths are 16 bits wide, color parts and font heights 8 bits. A C++ host mostly
// counts in int; a plain std::int16_t parameter would turn 65,636 into 100 without a word. A
// Number takes any integer and keeps it as it was given:
//
//     int x = 65636;
//     doc.DrawLine(x, 0, 10, 10);    // false; LastRefusal: "a number is 65636, but ..."
//     doc.SetColor(300, 0, 0);       // throws NumberOutOfRange, a RunTimeError 6
//
// A floating-point argument does not compile. Reading a number is what checks it, so a Number costs
// nothing but the comparison.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <type_traits>

#include <vellumark/export.h>
#include <vellumark/run_time_error.h>

namespace vellumark {

/// A number that its parameter cannot hold. Drawing and writing members refuse it with the reason
/// RefusalReason::NumberOutOfRange; accessors let it through.
class VELLUMARK_API NumberOutOfRange : public RunTimeError {
 public:
  NumberOutOfRange(std::int32_t given, std::int32_t greatest)
      : RunTimeError(Overflow), given_(given), greatest_(greatest) {}

  /// The number, brought into 32 bits.
  [[nodiscard]] std::int32_t given() const noexcept { return given_; }

  /// The greatest number of the parameter: 32,767 or 255.
  [[nodiscard]] std::int32_t greatest() const noexcept { return greatest_; }

 private:
  std::int32_t given_;
  std::int32_t greatest_;
};

template <class Narrow>
class Number {
 public:
  /// The type that automation clients pass, and that value() returns.
  using Value = Narrow;

  constexpr Number() noexcept = default;

  /// Any integer, implicitly.
  template <class T>
  requires(std::is_convertible_v<T, std::int64_t> &&
           !std::is_floating_point_v<T>) constexpr Number(T given) noexcept
      : given_(Saturated(given)) {}

  /// The number in its own width. Throws NumberOutOfRange if it does not fit.
  [[nodiscard]] constexpr Narrow value() const {
    if (given_ < std::numeric_limits<Narrow>::min() || given_ > kGreatest) {
      throw NumberOutOfRange(given_, kGreatest);
    }
    return static_cast<Narrow>(given_);
  }

 private:
  static constexpr std::int32_t kGreatest = std::numeric_limits<Narrow>::max();

  template <class T>
  static constexpr std::int32_t Saturated(T given) noexcept {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    if constexpr (std::is_unsigned_v<T> && sizeof(T) >= sizeof(std::int64_t)) {
      return static_cast<std::int32_t>(std::min<T>(given, static_cast<T>(kMost)));
    } else {
      return static_cast<std::int32_t>(
          std::clamp<std::int64_t>(static_cast<std::int64_t>(given), -kMost, kMost));
    }
  }

  std::int32_t given_ = 0;
};

/// A position, a length or a margin in points: -32,768 to 32,767.
using Int16 = Number<std::int16_t>;

/// A color part, a font height or a thickness: 0 to 255.
using Byte = Number<std::uint8_t>;

}  // namespace vellumark
