// SPDX-License-Identifier: MIT
//
// AppendShown: how a character of the input is set.
//
// Text goes into the document as it is, except for a few characters that the fonts lack and that
// plain text is often drawn with: arrows and box lines become ASCII, primes become quotes. What
// only directs how lines are broken, such as a soft hyphen, is left out.
//
//     std::string text;
//     AppendShown(U'→', text);      // "->"
#pragma once

#include <string>

namespace vellumark::tools {

void AppendShown(char32_t character, std::string& text);

/// Whether the character is a blank at which a line may be broken. A no-break space is not.
[[nodiscard]] bool IsBreakingBlank(char32_t character);

}  // namespace vellumark::tools
