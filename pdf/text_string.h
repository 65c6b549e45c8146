// SPDX-License-Identifier: MIT
//
// Strings in which any text is literal; parts of a LineBuffer line.
//
//     lines.Append(EscapedString{codes}, " Tj");                 // (a\(b\)) Tj
//     lines.Append("/Title ", TextString{"Bücherei"});           // UTF-16 behind a byte order mark
//     lines.Append("/URI ", UriString{"https://a.b/Ü (1)"});     // (https://a.b/%C3%9C%20\(1\))
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "encoding/eight_bytes.h"

namespace vellumark::pdf {

/// Bytes as they are: what would end the string or be read as another byte (parentheses,
/// backslash, line ends) is escaped.
struct EscapedString {
  std::string_view bytes;
  bool literal = false;  ///< known to have nothing to escape

  [[nodiscard]] std::size_t MaxSize() const noexcept { return 2 * bytes.size() + 2; }
  char* Write(char* to) const noexcept {
    *to++ = '(';
    if (literal) {
      to = std::copy(bytes.begin(), bytes.end(), to);
    } else {
      to = WriteInside(bytes, to);
    }
    *to++ = ')';
    return to;
  }

  /// The same without the parentheses around it; at most two bytes for each.
  static char* WriteInside(std::string_view bytes, char* to) noexcept {
    const auto special = [](std::uint64_t eight) {
      return encoding::HasParenthesis(eight) || encoding::HasByte(eight, '\\') ||
             encoding::HasBelow(eight, ' ');
    };
    return encoding::CopyByEight(bytes, to, special, WriteEach);
  }

 private:
  static char* WriteEach(std::string_view bytes, char* to) noexcept {
    for (const char c : bytes) {
      if (c == '(' || c == ')' || c == '\\' || c == '\r' || c == '\n') *to++ = '\\';
      *to++ = c == '\r' ? 'r' : c == '\n' ? 'n' : c;
    }
    return to;
  }
};

/// A text of the document's properties: printable ASCII as it is, any other text in UTF-16 behind
/// its byte order mark. Bytes that are not UTF-8 are U+FFFD, and so is U+001B, which would begin
/// the name of a language.
struct TextString {
  std::string_view utf8;

  [[nodiscard]] std::size_t MaxSize() const noexcept { return 3 * utf8.size() + 4; }
  char* Write(char* to) const noexcept;
};

/// A link address: bytes that RFC 3986 has no place for, such as blanks and what is not ASCII, are
/// written as "%" and two hexadecimal digits. Those that the address has already stay; a "%" that
/// begins none becomes "%25".
struct UriString {
  std::string_view utf8;

  [[nodiscard]] std::size_t MaxSize() const noexcept { return 3 * utf8.size() + 2; }
  char* Write(char* to) const noexcept;
};

}  // namespace vellumark::pdf
