// SPDX-License-Identifier: MIT
//
// The DLL itself: its file, its type library, whether anybody still uses it, and what keeps C++
// exceptions inside it.
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <windows.h>
#include <oaidl.h>

namespace vellumark::automation::server {

/// Keeps the DLL loaded, once more or once less: for each object that is handed out and for each
/// LockServer.
void LockModule(bool lock) noexcept;

[[nodiscard]] bool ModuleIsInUse() noexcept;

/// The full path of the DLL's file; empty if the system does not tell it.
[[nodiscard]] std::wstring ModulePath();

/// The description of the class or dispatch interface with this identifier (automation/
/// class_table.h), out of the type library that the DLL carries. `info` is set in every case, to
/// null on failure. Throws std::bad_alloc.
[[nodiscard]] HRESULT LoadTypeInfo(std::string_view id, ITypeInfo** info);

/// The result of `operation`, or of what it throws.
template <class Operation>
[[nodiscard]] HRESULT Guarded(const Operation& operation) noexcept {
  try {
    return operation();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace vellumark::automation::server
