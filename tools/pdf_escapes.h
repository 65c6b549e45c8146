// SPDX-License-Identifier: MIT
//
// What must be done to a text before a PDF document is given it.
//
// The writer pastes some texts into the file as they are, by design. This is the one place that
// knows which characters must not reach it raw:
//
//   page text       a backslash is doubled ("(" and ")" the writer escapes itself)
//   property text   ASCII with "(", ")", "\" and controls escaped; any other text as octal escapes
//                   of big-endian UTF-16 behind a byte-order mark, which readers show exactly
//   link address    percent-encoded where it must be; what is percent-encoded already stays
//
// The library measures an escaped page text with its escape characters; see pdf_output.h.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::tools {

/// Codes of the standard encoding to the UTF-8 that makes the writer emit them.
[[nodiscard]] std::string EscapePdfPageText(std::string_view codes);

/// UTF-8 to what goes between the parentheses of a document property.
[[nodiscard]] std::string EscapePdfProperty(std::string_view text);

/// UTF-8 to an address of printable ASCII without quotes, parentheses, backslash, "<" or ">".
[[nodiscard]] std::string EscapePdfLink(std::string_view address);

}  // namespace vellumark::tools
