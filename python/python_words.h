// SPDX-License-Identifier: MIT
//
// The member table in Python's words, for the module at run time and for its stub.
#pragma once

#include <string>
#include <string_view>

#include "automation/member.h"

namespace vellumark::python {

/// Whether a text parameter names a file: os.PathLike is taken there.
[[nodiscard]] bool IsFile(const automation::Parameter& parameter) noexcept;

/// Help and remarks of a member as a docstring, wrapped, without quotes or indentation.
[[nodiscard]] std::string Docstring(const automation::Member& member);

/// Breaks `text` at blanks into lines of at most `width` characters.
[[nodiscard]] std::string Wrap(std::string_view text, std::size_t width);

}  // namespace vellumark::python
