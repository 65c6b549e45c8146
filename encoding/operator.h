// SPDX-License-Identifier: MIT
//
// Operator: a left shift that is defined for every count of bits.
#pragma once

#include <cstdint>

namespace vellumark::encoding {

class Operator {
 public:
  /// The low 32 bits of `value` shifted left; 0 when `bits` is 32 or more.
  static constexpr std::int32_t ShiftLeft(std::int32_t value, std::uint8_t bits) {
    if (bits > 31) return 0;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) << bits);
  }
};

}  // namespace vellumark::encoding
