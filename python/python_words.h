// SPDX-License-Identifier: MIT
//
// The docstrings of the Python module, which the module and its stub share.
#pragma once

#include <string>
#include <string_view>

#include "automation/member.h"

namespace vellumark::python {

inline constexpr std::string_view kRenderDocstring =
    R"(Returns the bytes of the document that `function` makes, for instance for a web response.

`document_class` is PDF or PS. `function` gets a new document, sets its properties, calls Create
and draws. No file is created, so the name that it passes to Create does not matter. If `function`
does not call Flush, render does. Pictures are read from the file system, or given as bytes. Raises RuntimeError if
no document was created.)";

inline constexpr std::string_view kGreatestPictureDocstring =
    R"(The most bytes that decoding a picture may take, 0 to 2147483647, which is the default. A larger
picture is refused before memory is taken for it. Not a member of the other interfaces.)";

inline constexpr std::string_view kRunTimeErrorDocstring =
    R"(A run-time error that stopped a member; `number` says which: 6 overflow, 7 out of memory,
9 subscript out of range, 11 division by zero, 13 type mismatch.)";

/// Help and remarks of a member as a docstring, wrapped, without quotes or indentation.
[[nodiscard]] std::string Docstring(const automation::Member& member);

/// Breaks `text` at blanks into lines of at most `width` characters.
[[nodiscard]] std::string Wrap(std::string_view text, std::size_t width);

}  // namespace vellumark::python
