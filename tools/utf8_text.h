// SPDX-License-Identifier: MIT
//
// UTF-8 text, character by character.
//
// The input is checked once, with FirstInvalidByte, when it is read. All other code may then assume
// valid text:
//
//     for (std::size_t at = 0; at < text.size();) Use(NextCharacter(text, at));
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark::tools {

/// The index of the first byte that is not part of well-formed UTF-8, which has no overlong forms,
/// no surrogates and nothing beyond U+10FFFF; nothing if all bytes are.
[[nodiscard]] std::optional<std::size_t> FirstInvalidByte(std::string_view bytes);

/// The character at `at`, which is then moved behind it. The text must be well-formed.
[[nodiscard]] char32_t NextCharacter(std::string_view text, std::size_t& at);

/// Moves `at` behind the character there, and behind a combining mark that follows it: the two may
/// have one glyph.
void SkipMarkedCharacter(std::string_view text, std::size_t& at);

/// How many characters a well-formed text has.
[[nodiscard]] std::size_t CountCharacters(std::string_view text);

void AppendUtf8(std::string& text, char32_t character);

}  // namespace vellumark::tools
