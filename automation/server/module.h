// SPDX-License-Identifier: MIT
//
// The DLL itself: where its file is, and whether anybody still needs it.
#pragma once

#include <string>
#include <windows.h>

namespace vellumark::automation {

/// Keeps the DLL loaded as long as it lives: a member of every object that is handed out.
class ModuleUse {
 public:
  ModuleUse() noexcept;
  ModuleUse(const ModuleUse&) = delete;
  ModuleUse& operator=(const ModuleUse&) = delete;
  ModuleUse(ModuleUse&&) = delete;
  ModuleUse& operator=(ModuleUse&&) = delete;
  ~ModuleUse();
};

/// LockServer: counts like a ModuleUse, without an object.
void LockModule(bool lock) noexcept;

[[nodiscard]] bool ModuleIsInUse() noexcept;

/// The full path of the DLL's file; empty where the system does not tell it.
[[nodiscard]] std::wstring ModulePath();

}  // namespace vellumark::automation
