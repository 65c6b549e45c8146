// SPDX-License-Identifier: MIT
//
// Writes the stub of the module, __init__.pyi, for type checkers and editors.
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
