// SPDX-License-Identifier: MIT
//
// What must be done to a text before a PostScript document is given it.
//
// The writer pastes every text into the program as it is, by design. This is the one place that
// knows which characters must not reach it raw:
//
//   page text       "(", ")" and "\" get a backslash in front
//   property text   stands in a comment line of its own: line ends and other controls become blanks
//
// The library measures an escaped page text with its escape characters; see ps_output.h.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::tools {

[[nodiscard]] constexpr bool IsEscapedInPs(char code) {
  return code == '(' || code == ')' || code == '\\';
}

/// Codes of the standard encoding to the UTF-8 that makes the writer emit them.
[[nodiscard]] std::string EscapePsPageText(std::string_view codes);

/// UTF-8 to what stands behind the comment's keyword.
[[nodiscard]] std::string EscapePsProperty(std::string_view text);

}  // namespace vellumark::tools
