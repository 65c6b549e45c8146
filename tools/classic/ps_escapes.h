// SPDX-License-Identifier: MIT
//
// Escapes texts before they are passed to a PostScript document.
//
// The document writes every text into the program exactly as it is. This is the one place that
// knows which characters must be escaped:
//
//   page text       "(", ")" and "\" get a backslash in front
//   property text   is in a comment line of its own, so line ends and other controls become blanks
//
// The library measures an escaped page text with its escape characters; see ps_output.h.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::tools {

[[nodiscard]] constexpr bool IsEscapedInPs(char code) {
  return code == '(' || code == ')' || code == '\\';
}

/// From codes of the standard encoding to the UTF-8 that the document writes as these codes.
[[nodiscard]] std::string EscapePsPageText(std::string_view codes);

/// From UTF-8 to the text behind the keyword of the comment.
[[nodiscard]] std::string EscapePsProperty(std::string_view text);

}  // namespace vellumark::tools
