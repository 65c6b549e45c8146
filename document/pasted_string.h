// SPDX-License-Identifier: MIT
//
// PastedString: a string of either page language, its text exactly as the host gave it.
//
//     lines.Append("/Title ", PastedString{title});    // /Title (...)
//
// Both PDF and PostScript put strings between parentheses. Nothing is escaped: where that happens
// on purpose, document/oddities.h says what a host must do.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace vellumark::document {

struct PastedString {
  std::string_view bytes;

  [[nodiscard]] std::size_t MaxSize() const noexcept { return bytes.size() + 2; }
  char* Write(char* to) const noexcept {
    *to++ = '(';
    if (!bytes.empty()) std::memcpy(to, bytes.data(), bytes.size());
    to += bytes.size();
    *to++ = ')';
    return to;
  }
};

}  // namespace vellumark::document
