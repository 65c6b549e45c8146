// SPDX-License-Identifier: MIT
//
// Adler32: the checksum of a zlib stream (RFC 1950).
//
// Two sums modulo 65521: s1 of the bytes, starting at 1, and s2 of the values that s1 takes. The
// checksum is s2 * 65536 + s1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/operator.h"

namespace vellumark::encoding {

class Adler32 {
 public:
  /// The checksum of the bytes; of none it is 1.
  static std::uint32_t Calculate(std::span<const std::uint8_t> bytes) {
    Adler32 sums;
    sums.Add(bytes);
    return sums.Value();
  }

  /// The same without vector instructions.
  static std::uint32_t CalculatePortable(std::span<const std::uint8_t> bytes) {
    Adler32 sums;
    sums.AddPortable(bytes);
    return sums.Value();
  }

 private:
  void Add(std::span<const std::uint8_t> bytes);
  void AddPortable(std::span<const std::uint8_t> bytes);
  [[nodiscard]] std::uint32_t Value() const {
    return static_cast<std::uint32_t>(Operator::ShiftLeft(static_cast<std::int32_t>(s2_), 16)) |
           s1_;
  }

  std::uint32_t s1_ = 1;
  std::uint32_t s2_ = 0;
};

}  // namespace vellumark::encoding
