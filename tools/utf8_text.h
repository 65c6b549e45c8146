// SPDX-License-Identifier: MIT
//
// UTF-8 text, character by character.
//
// Input is checked once, with FirstInvalidByte, when it is read; everything behind that walks over
// valid text:
//
//     for (std::size_t at = 0; at < text.size();) Use(NextCharacter(text, at));
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark::tools {

/// Where the first byte stands that is not part of well-formed UTF-8 (no overlong forms, no
/// surrogates, nothing beyond U+10FFFF); empty if there is none.
[[nodiscard]] std::optional<std::size_t> FirstInvalidByte(std::string_view bytes);

/// The character at `at`, which moves behind it. The text must be well-formed.
[[nodiscard]] char32_t NextCharacter(std::string_view text, std::size_t& at);

/// How many characters a well-formed text has.
[[nodiscard]] std::size_t CountCharacters(std::string_view text);

void AppendUtf8(std::string& text, char32_t character);

}  // namespace vellumark::tools
