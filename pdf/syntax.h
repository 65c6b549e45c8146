// SPDX-License-Identifier: MIT
//
// The pieces of PDF syntax that are more than a number or a name; parts of a LineBuffer line.
//
//     lines.Append("/Parent ", Reference{2});          // /Parent 2 0 R
//     lines.Append(LiteralString{"a(b)c"}, " Tj");     // (a\(b\)c) Tj
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "document/line_buffer.h"

namespace vellumark::pdf {

/// Names another object: "n 0 R".
struct Reference {
  int number = 0;

  [[nodiscard]] static std::size_t MaxSize() noexcept { return 16; }
  char* Write(char* to) const noexcept {
    to = std::to_chars(to, to + 11, number).ptr;
    std::memcpy(to, " 0 R", 4);
    return to + 4;
  }
};

/// A string operand; parentheses are escaped, and nothing else (pdf/oddities.h).
struct LiteralString {
  std::string_view bytes;

  [[nodiscard]] std::size_t MaxSize() const noexcept { return 2 * bytes.size() + 2; }
  char* Write(char* to) const noexcept {
    *to++ = '(';
    for (const char c : bytes) {
      if (c == '(' || c == ')') *to++ = '\\';
      *to++ = c;
    }
    *to++ = ')';
    return to;
  }
};

/// A number with leading zeros: the offsets of the cross-reference table have ten digits.
template <int kDigits>
struct Padded {
  std::int64_t value = 0;

  [[nodiscard]] static std::size_t MaxSize() noexcept { return kDigits; }
  char* Write(char* to) const noexcept {
    std::memset(to, '0', kDigits);
    char* digit = to + kDigits;
    for (auto rest = value; rest > 0; rest /= 10) *--digit = static_cast<char>('0' + rest % 10);
    return to + kDigits;
  }
};

}  // namespace vellumark::pdf
