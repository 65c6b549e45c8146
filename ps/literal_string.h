// SPDX-License-Identifier: MIT
//
// EscapedString: a PostScript string in which any bytes are literal; a part of a LineBuffer line.
//
//     lines.Append(EscapedString(codes), " show");         // (a\(b\)\374) show
//
// Parentheses and the backslash are escaped, bytes outside printable ASCII are octal. A long string
// goes on in a new line behind a backslash, which interpreters skip; none of these lines begins
// with "%". A line of the string is at most 200 bytes long, so that with up to 55 bytes before and
// behind it no line passes 255.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "encoding/eight_bytes.h"

namespace vellumark::ps {

class EscapedString {
 public:
  explicit EscapedString(std::string_view bytes) noexcept : bytes_(bytes), plain_(IsPlain(bytes)) {}

  /// Whether it is one line of printable ASCII as it stands.
  [[nodiscard]] bool Plain() const noexcept { return plain_; }

  /// Four bytes for each, and two more at every line end.
  [[nodiscard]] std::size_t MaxSize() const noexcept {
    if (plain_) return bytes_.size() + 2;
    return 4 * bytes_.size() + 2 * (4 * bytes_.size() / (kLongestLine - 4)) + 2;
  }

  char* Write(char* to) const noexcept {
    if (!plain_) return WriteEscaped(to);
    *to++ = '(';
    if (!bytes_.empty()) std::memcpy(to, bytes_.data(), bytes_.size());
    to += bytes_.size();
    *to++ = ')';
    return to;
  }

  /// Its longest line has at most so many bytes.
  [[nodiscard]] std::size_t LongestLine() const noexcept {
    return plain_ ? bytes_.size() + 2 : kLongestLine;
  }

 private:
  static constexpr std::size_t kLongestLine = 200;

  static bool IsPlain(std::string_view rest) noexcept {
    if (rest.size() > kLongestLine - 2) return false;
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

  std::string_view bytes_;
  bool plain_;
};

}  // namespace vellumark::ps
