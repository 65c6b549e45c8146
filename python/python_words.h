// SPDX-License-Identifier: MIT
//
// The member table in Python's words, and what only Python has: docstrings and types that the
// module at run time and its stub share.
#pragma once

#include <string>
#include <string_view>

#include "automation/member.h"

namespace vellumark::python {

inline constexpr std::string_view kRenderDocstring =
    R"(Returns the file that `function` makes, without any file, for instance as a web answer.

`document_class` is PDF or PS. `function` gets a new document; it sets properties, calls Create
with a name that nobody will see, and draws. The document is flushed if `function` did not.
Pictures are read from the file system. Raises RuntimeError where nothing was created.)";

inline constexpr std::string_view kRunTimeErrorDocstring =
    R"(What stops a member in its middle; `number` is the run-time error's: 6 overflow, 7 out of
memory, 9 subscript out of range, 11 division by zero, 13 type mismatch.)";

/// Help and remarks of a member as a docstring, wrapped, without quotes or indentation.
[[nodiscard]] std::string Docstring(const automation::Member& member);

/// Breaks `text` at blanks into lines of at most `width` characters.
[[nodiscard]] std::string Wrap(std::string_view text, std::size_t width);

}  // namespace vellumark::python
