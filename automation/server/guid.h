// SPDX-License-Identifier: MIT
//
// The identifiers of the class table as Windows takes them.
//
//     const GUID id = ToGuid("26FA760F-475E-47DB-A28F-E675FC3BE490");
#pragma once

#include <string_view>
#include <windows.h>

#include "automation/class_table.h"

namespace vellumark::automation {

/// `text` has no braces and is well-formed.
[[nodiscard]] GUID ToGuid(std::string_view text) noexcept;

/// The class with that CLSID; null where there is none.
[[nodiscard]] const ClassInfo* FindClass(REFCLSID id) noexcept;

}  // namespace vellumark::automation
