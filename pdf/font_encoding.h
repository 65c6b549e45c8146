// SPDX-License-Identifier: MIT
//
// How a PDF declares what the codes of a standard font are (layout/text_encoding.h).
//
//     WinAnsi      /Encoding /WinAnsiEncoding
//     Extended     /Encoding << /Type /Encoding /BaseEncoding /WinAnsiEncoding
//                      /Differences [1 /omacron /Rcommaaccent ...] >>
//                  /ToUnicode: a stream with ToUnicodeMap(TextEncoding::Extended)
#pragma once

#include <string>

#include "layout/text_encoding.h"

namespace vellumark::pdf {

/// The array of /Differences, brackets included: how Extended differs from WinAnsi. Lines are at
/// most 80 characters long and end in a line feed.
[[nodiscard]] std::string ExtendedDifferences();

/// The body of a /ToUnicode stream, a CMap from the codes of `encoding` to UTF-16.
[[nodiscard]] std::string ToUnicodeMap(layout::TextEncoding encoding);

}  // namespace vellumark::pdf
