// SPDX-License-Identifier: MIT
//
// How a PDF declares what the codes of a standard font are (layout/text_encoding.h).
//
//     WinAnsi     /Encoding /WinAnsiEncoding
//     Extended    /Encoding << /Type /Encoding /BaseEncoding /WinAnsiEncoding
//                     /Differences [ 1 /omacron ... ] >>
//     Symbol, ZapfDingbats
//                 /Encoding << /Type /Encoding /Differences [ 160 /Euro ] >>
//
// and for each but WinAnsi a /ToUnicode stream.
#pragma once

#include <string>

#include "layout/text_encoding.h"

namespace vellumark::pdf {

/// The array of /Differences, brackets included: for Extended how it differs from WinAnsi, for
/// Symbol and ZapfDingbats the codes 128 to 160, which some readers' editions of the fonts know as
/// glyphs only; for WinAnsi nothing. Lines are at most 80 characters long and end in a line feed.
[[nodiscard]] std::string DifferencesOf(layout::TextEncoding encoding);

/// The body of a /ToUnicode stream, a CMap from the codes of `encoding` to UTF-16.
[[nodiscard]] std::string ToUnicodeMap(layout::TextEncoding encoding);

}  // namespace vellumark::pdf
