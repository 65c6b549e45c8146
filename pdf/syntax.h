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
#include <limits>
#include <string_view>

#include "document/decimal_digits.h"
#include "encoding/eight_bytes.h"

namespace vellumark::pdf {

/// Names another object: "n 0 R".
struct Reference {
  int number = 0;

  [[nodiscard]] static std::size_t MaxSize() noexcept { return 16; }
  char* Write(char* to) const noexcept {
    to = document::WriteInteger(number, to);
    std::memcpy(to, " 0 R", 4);
    return to + 4;
  }
};

/// A string operand of a classic document: parentheses are escaped, and nothing else.
struct LiteralString {
  std::string_view bytes;

  [[nodiscard]] std::size_t MaxSize() const noexcept { return 2 * bytes.size() + 2; }
  char* Write(char* to) const noexcept {
    *to++ = '(';
    to = encoding::CopyByEight(bytes, to, encoding::HasParenthesis, WriteEach);
    *to++ = ')';
    return to;
  }

 private:
  static char* WriteEach(std::string_view some, char* to) noexcept {
    for (const char c : some) {
      if (c == '(' || c == ')') *to++ = '\\';
      *to++ = c;
    }
    return to;
  }
};

/// The last digits of a number that is not negative, with leading zeros: an even count of them. The
/// offsets of the cross-reference table have ten; a long document has thousands, so they are made
/// two at a time.
template <std::size_t kDigits>
struct Padded {
  static_assert(kDigits % 2 == 0);

  std::int64_t value = 0;

  [[nodiscard]] static std::size_t MaxSize() noexcept { return kDigits; }
  char* Write(char* to) const noexcept {
    if (value <= std::numeric_limits<std::uint32_t>::max()) {
      WritePairs(static_cast<std::uint32_t>(value), to);  // divides in less time
    } else {
      WritePairs(static_cast<std::uint64_t>(value), to);
    }
    return to + kDigits;
  }

 private:
  template <class Number>
  static void WritePairs(Number rest, char* to) noexcept {
    for (std::size_t i = kDigits; i > 0; i -= 2, rest /= 100) {
      document::WriteTwoDigits(static_cast<std::uint32_t>(rest % 100), to + i - 2);
    }
  }
};

}  // namespace vellumark::pdf
