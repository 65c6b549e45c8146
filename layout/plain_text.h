// SPDX-License-Identifier: MIT
//
// PlainText: what one pass over a text of printable ASCII tells, which most texts are.
//
//     const PlainText text = ReadPlain("Total (net)", font);
//     text.plain;     // true: each byte is its own code in a Latin font
//     text.sum;       // the width in 1/1000 em
//     text.literal;   // false: a string of PDF or PostScript escapes the parentheses
//
// A byte has one entry of 64 bits, in which its width and what it is are counted at once. Some
// processors look up 64 bytes at once instead.
#pragma once

#include <cstdint>
#include <string_view>

#include "layout/font.h"

namespace vellumark::layout {

struct PlainText {
  bool plain = false;    ///< printable ASCII, in a font of a Latin family; if not, the rest is 0
  bool literal = false;  ///< without parentheses and backslash
  std::int64_t sum = 0;  ///< 1/1000 em
};

[[nodiscard]] PlainText ReadPlain(std::string_view text, const Font& font) noexcept;

/// The same on any processor.
[[nodiscard]] PlainText ReadPlainPortable(std::string_view text, const Font& font) noexcept;

}  // namespace vellumark::layout
