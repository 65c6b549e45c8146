// SPDX-License-Identifier: MIT
#include "ps/literal_string.h"

namespace vellumark::ps {
namespace {

constexpr std::string_view kContinued = "\\\n";

char* WriteOctal(unsigned char byte, char* to) {
  *to++ = '\\';
  *to++ = static_cast<char>('0' + byte / 64);
  *to++ = static_cast<char>('0' + byte / 8 % 8);
  *to++ = static_cast<char>('0' + byte % 8);
  return to;
}

}  // namespace

char* EscapedString::WriteEscaped(char* to) const noexcept {
  // Behind these, there is room for four characters and the backslash or the closing parenthesis.
  char* full = to + kLongestLine - 5;
  const char* line = to;
  *to++ = '(';
  for (const char c : bytes_) {
    if (to > full) {
      std::memcpy(to, kContinued.data(), kContinued.size());
      to += kContinued.size();
      line = to;
      full = to + kLongestLine - 5;
    }
    const bool begins_comment = c == '%' && to == line;
    if (c < ' ' || c > '~' || begins_comment) {
      to = WriteOctal(static_cast<unsigned char>(c), to);
    } else {
      if (c == '(' || c == ')' || c == '\\') *to++ = '\\';
      *to++ = c;
    }
  }
  *to++ = ')';
  return to;
}

}  // namespace vellumark::ps
