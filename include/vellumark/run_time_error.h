// SPDX-License-Identifier: MIT
//
// RunTimeError: what stops an operation in its middle.
//
// The library counts in 16-bit points and 32-bit byte positions and checks every sum. A sum that
// leaves its range, an index outside a list, a division by zero or a text that is not a number
// raises a RunTimeError with the number that automation clients know it by:
//
//     number   meaning                  example
//     6        overflow                 a position beyond 32,767 points
//     7        out of memory
//     9        subscript out of range   GetColor before Create: there is no color yet
//     11       division by zero
//     13       type mismatch            a text where a number is needed
//
// Drawing and writing members catch it and return false; accessors let it reach the caller.
#pragma once

#include <stdexcept>

#include <vellumark/export.h>

namespace vellumark {

class VELLUMARK_API RunTimeError : public std::runtime_error {
 public:
  enum Number : int {
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
  };

  explicit RunTimeError(Number number) : std::runtime_error(Text(number)), number_(number) {}

  /// The run-time error's number: 6, 7, 9, 11 or 13.
  [[nodiscard]] Number number() const noexcept { return number_; }

 private:
  static const char* Text(Number number) noexcept {
    switch (number) {
      case Overflow: return "overflow";
      case OutOfMemory: return "out of memory";
      case SubscriptOutOfRange: return "subscript out of range";
      case DivisionByZero: return "division by zero";
      case TypeMismatch: return "type mismatch";
    }
    return "run-time error";
  }

  Number number_;
};

}  // namespace vellumark
