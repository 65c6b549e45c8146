// SPDX-License-Identifier: MIT
//
// The text to typeset: read whole, and checked before anything is made of it.
//
//     const std::string text = ReadInput("notes.md");   // "-" reads standard input
//
// Accepted is UTF-8 of up to 64 MiB with or without a byte-order mark. A file that is missing, a
// directory, longer, not UTF-8 or contains a NUL throws Failure, which names the file and, where it
// is about a byte, its line and column.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::tools {

/// The file's text without its byte-order mark.
[[nodiscard]] std::string ReadInput(const std::string& name);

/// What ReadInput checks and strips; `name` is for the messages.
[[nodiscard]] std::string CheckedText(std::string bytes, std::string_view name);

}  // namespace vellumark::tools
