// SPDX-License-Identifier: MIT
//
// The type library that the DLL carries: what editors, generated wrappers and hosts ask about.
#pragma once

#include <string_view>
#include <windows.h>
#include <oaidl.h>

namespace vellumark::automation {

/// The description of the class or dispatch interface with this identifier (automation/
/// class_table.h). `info` is set in every case, to null on failure. Throws std::bad_alloc.
[[nodiscard]] HRESULT LoadTypeInfo(std::string_view id, ITypeInfo** info);

}  // namespace vellumark::automation
