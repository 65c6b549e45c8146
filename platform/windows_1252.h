// SPDX-License-Identifier: MIT
//
// Windows-1252, the single-byte code page of platforms that have none of their own.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::platform {

/// The byte of a character, or -1 if the code page lacks it. U+0000 to U+00FF are the bytes of
/// the same value; the 27 characters of Windows-1252 at 0x80 to 0x9F (the euro sign, curly quotes,
/// dashes, ...) are those that it assigns.
[[nodiscard]] int Windows1252Byte(char32_t character) noexcept;

/// One byte per character of `utf8`, "?" for what the code page lacks and for malformed bytes. The
/// result is `utf8` itself if that is plain ASCII, otherwise it lies in `storage`.
[[nodiscard]] std::string_view ToWindows1252(std::string_view utf8, std::string& storage);

}  // namespace vellumark::platform
