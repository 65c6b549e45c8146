// SPDX-License-Identifier: MIT
//
// UTF-8 as bytes of the system's ANSI code page: for documents, which need one byte per character,
// and for the system's own functions, which take what the system has.
//
//     std::string storage;
//     ToAnsiCodePage("Straße", storage);        // "Stra\xDFe" if the code page is 1252
//     CreateFileA(ToSystemText("Straße").c_str(), ...);
//
// A character that the code page lacks becomes "?", never one that merely looks like it; so does
// one beyond U+FFFF and each malformed part (platform/utf8.h).
//
// Some systems do not have a single-byte code page: East Asian ones use up to two bytes a
// character, and UTF-8 (65001) up to four. The documents' text is then Windows-1252
// (platform/windows_1252.h).
#pragma once

#include <string>
#include <string_view>

namespace vellumark::platform {

/// One byte per character of `utf8`, in the system's ANSI code page or, if that is not possible, in
/// Windows-1252. The result is `utf8` itself if that is plain ASCII, otherwise it lies in
/// `storage`.
[[nodiscard]] std::string_view ToAnsiCodePage(std::string_view utf8, std::string& storage);

/// The same with the code page of this number instead of the system's.
[[nodiscard]] std::string_view ToCodePage(unsigned code_page, std::string_view utf8,
                                          std::string& storage);

/// The text as the system's functions with "A" at the end of their names take it, in one or more
/// bytes per character. At most 2^30 characters.
[[nodiscard]] std::string ToSystemText(std::string_view utf8);

}  // namespace vellumark::platform
