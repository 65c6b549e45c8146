// SPDX-License-Identifier: MIT
//
// Base-85 and hexadecimal text in lines, for files that have to stay clean text (PostScript).
//
//     file += EncodeAscii85Lines(data, "\r\n");
//
// Lines have at most 80 characters, and none begins with "%": programs that look for comments at
// line starts find none in a picture. The last line ends with the end marker ("~>" or ">") and no
// line end. Readers of both encodings skip line ends and blanks.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vellumark::encoding {

/// The text of ascii85.h in lines that are `line_end` apart; room for two more bytes is there.
std::string EncodeAscii85Lines(std::span<const std::uint8_t> data, std::string_view line_end);

/// The text of ascii_hex.h in lines that are `line_end` apart; room for two more bytes is there.
std::string EncodeAsciiHexLines(std::span<const std::uint8_t> data, std::string_view line_end);

}  // namespace vellumark::encoding
