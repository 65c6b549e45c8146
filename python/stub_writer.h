// SPDX-License-Identifier: MIT
//
// Writes the module's stub, __init__.pyi: what type checkers and editors know about it.
//
//     head          imports, render, RunTimeError
//     enumerations  enum.IntEnum classes
//     PDF, PS       every member of the table with types, defaults and docstring
//     Enumerations
#pragma once

#include <string>

namespace vellumark::python {

[[nodiscard]] std::string WriteStub();

}  // namespace vellumark::python
