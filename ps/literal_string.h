// SPDX-License-Identifier: MIT
//
// EscapedString: a PostScript string in which any bytes are literal; a part of a LineBuffer line.
//
//     lines.Append(EscapedString{codes}, " show");         // (a\(b\)\374) show
//
// Parentheses and the backslash are escaped, bytes outside printable ASCII are octal. A long string
// goes on in a new line behind a backslash, which interpreters skip; none of these lines begins
// with
// "%". A line of the string is at most 200 bytes long, so that with up to 55 bytes before and
// behind it no line passes 255.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "encoding/eight_bytes.h"

namespace vellumark::ps {

struct EscapedString {
  std::string_view bytes;

  /// Four bytes for each, and three more at every line end.
  [[nodiscard]] std::size_t MaxSize() const noexcept {
    return 4 * bytes.size() + 3 * (4 * bytes.size() / (kLongestLine - 4)) + 2;
  }

  char* Write(char* to) const noexcept {
    if (!IsPlain()) return WriteEscaped(to);
    *to++ = '(';
    if (!bytes.empty()) std::memcpy(to, bytes.data(), bytes.size());
    to += bytes.size();
    *to++ = ')';
    return to;
  }

 private:
  static constexpr std::size_t kLongestLine = 200;

  [[nodiscard]] bool IsPlain() const noexcept {
    if (bytes.size() > kLongestLine - 2) return false;
    std::string_view rest = bytes;
    for (; rest.size() >= 8; rest.remove_prefix(8)) {
      const std::uint64_t eight = encoding::LoadEight(rest.data());
      const bool special = encoding::HasParenthesis(eight) || encoding::HasByte(eight, '\\') ||
                           encoding::HasUnprintable(eight);
      if (special) return false;
    }
    for (const char c : rest) {
      if (c == '(' || c == ')' || c == '\\' || c < ' ' || c > '~') return false;
    }
    return true;
  }

  char* WriteEscaped(char* to) const noexcept;
};

}  // namespace vellumark::ps
