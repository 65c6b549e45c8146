// SPDX-License-Identifier: MIT
//
// Automation's texts (UTF-16 with a length, NULs kept) and the library's (UTF-8), both ways.
//
// A null BSTR is an empty text. A surrogate without its other half, and each malformed part of
// UTF-8, becomes U+FFFD. All throw std::bad_alloc.
#pragma once

#include <string>
#include <string_view>
#include <windows.h>
#include <oleauto.h>

namespace vellumark::automation {

[[nodiscard]] std::string Utf8(std::wstring_view text);
[[nodiscard]] std::wstring Wide(std::string_view utf8);

[[nodiscard]] std::string TextOf(BSTR text);

/// A new BSTR; its taker frees it.
[[nodiscard]] BSTR NewBstr(std::string_view utf8);

}  // namespace vellumark::automation
