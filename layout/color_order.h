// SPDX-License-Identifier: MIT
//
// ExchangeBlueAndRed: from the order of colors in a bitmap to that of page languages.
//
//     std::array<std::uint8_t, 6> row = {b1, g1, r1, b2, g2, r2};
//     ExchangeBlueAndRed(row, 3);                           // r1, g1, b1, r2, g2, b2
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vellumark::layout {

/// Blue, green, red becomes red, green, blue in each pixel of `row`, which are all whole; at 4
/// `bytes_per_pixel` instead of 3, the fourth byte stays.
void ExchangeBlueAndRed(std::span<std::uint8_t> row, std::size_t bytes_per_pixel) noexcept;

}  // namespace vellumark::layout
