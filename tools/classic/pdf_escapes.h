// SPDX-License-Identifier: MIT
//
// Escapes texts before they are passed to a PDF document.
//
// The document writes some texts into the file exactly as they are. This is the one place that
// knows which characters must be escaped:
//
//   page text       a backslash is doubled; the document escapes "(" and ")" itself
//   property text   ASCII with "(", ")", "\" and controls escaped; any other text as octal escapes
//                   of big-endian UTF-16 with a byte-order mark, which readers show exactly
//   link address    percent-encoded as needed; percent-encoded bytes are kept
//
// The library measures an escaped page text with its escape characters; see pdf_output.h.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::tools {

/// From codes of the standard encoding to the UTF-8 that the document writes as these codes.
[[nodiscard]] std::string EscapePdfPageText(std::string_view codes);

/// From UTF-8 to the text between the parentheses of a document property.
[[nodiscard]] std::string EscapePdfProperty(std::string_view text);

/// From UTF-8 to an address of printable ASCII without quotes, parentheses, backslash, "<" or ">".
[[nodiscard]] std::string EscapePdfLink(std::string_view address);

}  // namespace vellumark::tools
