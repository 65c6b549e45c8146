// SPDX-License-Identifier: MIT
//
// The library's texts as Windows takes them, and back: UTF-8 as UTF-16 and as a BSTR, identifiers
// of the class table as GUIDs.
//
//     const std::wstring wide = Wide("Straße");
//     const GUID id = ToGuid("26FA760F-475E-47DB-A28F-E675FC3BE490");
//
// A null BSTR is an empty text, and NULs inside a text are kept. A surrogate without its other half
// and each malformed part of UTF-8 becomes U+FFFD. All but ToGuid throw std::bad_alloc.
#pragma once

#include <string>
#include <string_view>
#include <windows.h>
#include <oleauto.h>

namespace vellumark::automation::server {

[[nodiscard]] std::string Utf8(std::wstring_view text);
[[nodiscard]] std::string Utf8(BSTR text);
[[nodiscard]] std::wstring Wide(std::string_view utf8);

/// Returns a new BSTR, which the caller frees.
[[nodiscard]] BSTR NewBstr(std::string_view utf8);

/// `text` has no braces and is well-formed.
[[nodiscard]] GUID ToGuid(std::string_view text) noexcept;

}  // namespace vellumark::automation::server
