// SPDX-License-Identifier: MIT
//
// The text to typeset, which is read as a whole and checked.
//
//     const std::string text = ReadInput("notes.md");   // "-" reads standard input
//
// The text must be UTF-8 of up to 64 MiB without NUL; a byte-order mark may precede it. Anything
// else throws Failure, which names the file and the reason: the system's if the file cannot be
// read, the line and column of a byte that is not valid.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::tools {

/// The file's text without its byte-order mark.
[[nodiscard]] std::string ReadInput(const std::string& name);

/// The bytes without their byte-order mark, after the same checks. `name` is for the messages.
[[nodiscard]] std::string CheckedText(std::string bytes, std::string_view name);

}  // namespace vellumark::tools
