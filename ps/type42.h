// SPDX-License-Identifier: MIT
//
// SfntStrings: a TrueType font cut into pieces that are strings of PostScript.
//
//     for (std::span<const std::uint8_t> piece : SfntStrings(font)) ...
//
// A string has less than 64 KiB, and each begins with a table or a glyph (The Type 42 Font Format
// Specification, sfnts). Raises run-time error 13 for a font that cannot be cut so.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vellumark::ps {

[[nodiscard]] std::vector<std::span<const std::uint8_t>> SfntStrings(
    std::span<const std::uint8_t> font);

}  // namespace vellumark::ps
