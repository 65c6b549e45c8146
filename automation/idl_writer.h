// SPDX-License-Identifier: MIT
//
// Writes the type library's source: the IDL text from which widl makes "Vellumark 1.0 Type
// Library".
//
//     enumerations    in alphabetical order, members in the order of the enumeration table
//     _PDF, _PS       one dispinterface each, with every member of the member table
//     _Enumerations   a dispinterface without members
//     PDF, PS, Enumerations   coclasses
//
// Names, dispatch ids, types, directions, defaults and help strings are those of the tables.
#pragma once

#include <string>

namespace vellumark::automation {

[[nodiscard]] std::string WriteIdl();

}  // namespace vellumark::automation
