// SPDX-License-Identifier: MIT
//
// Conversion between Python objects and Values.
//
//     Type         takes                                     otherwise raises
//     Integer      int, or an object with __index__          TypeError; OverflowError
//     Byte         the same                                  the same
//     Boolean      bool, or the same; 0 is False             TypeError
//     Single       float, int, or an object with __float__   TypeError; OverflowError
//     String       str; a lone surrogate becomes "?"         TypeError
//       a file     str, bytes or os.PathLike, as open()      TypeError; UnicodeEncodeError
//       or bytes   str or os.PathLike is the file's name,    TypeError; UnicodeEncodeError;
//                  any bytes-like object its content         BufferError
//     Enumeration  int of 32 bits, a member or not           TypeError; OverflowError
//
// A Value of an enumeration becomes the member of the IntEnum, or a plain int if it is not a
// member.
#pragma once

#include <pybind11/pybind11.h>
#include <string>

#include "automation/enumeration_table.h"
#include "automation/member.h"

namespace vellumark::python {

/// Converts an argument. Error messages call it `place`, such as "PDF.DrawLine() argument 'x1'".
/// May run Python code of the argument's class, which may call the document. Throws
/// pybind11::error_already_set.
[[nodiscard]] automation::Value FromPython(pybind11::handle object,
                                           const automation::Parameter& parameter,
                                           const std::string& place);

[[nodiscard]] pybind11::object ToPython(const automation::Value& value,
                                        const automation::ValueType& type);

/// The enum.IntEnum class of an enumeration. It is made once and exists until the process ends.
[[nodiscard]] pybind11::object EnumerationClass(const automation::Enumeration& enumeration);

}  // namespace vellumark::python
