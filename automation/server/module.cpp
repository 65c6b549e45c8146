// SPDX-License-Identifier: MIT
#include "automation/server/module.h"

#include <atomic>

namespace vellumark::automation {
namespace {

std::atomic<long> uses = 0;
constexpr char kInThisModule = 0;

constexpr std::size_t kLongestPath = 32767;

}  // namespace

ModuleUse::ModuleUse() noexcept { LockModule(true); }
ModuleUse::~ModuleUse() { LockModule(false); }

void LockModule(bool lock) noexcept { uses += lock ? 1 : -1; }

bool ModuleIsInUse() noexcept { return uses != 0; }

std::wstring ModulePath() {
  HMODULE module = nullptr;
  const DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(flags, reinterpret_cast<const wchar_t*>(&kInThisModule), &module) == 0) {
    return {};
  }
  std::wstring path(MAX_PATH, L'\0');
  while (true) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {  // else it was cut off
      path.resize(length);
      return path;
    }
    if (path.size() >= kLongestPath) return {};
    path.resize(path.size() * 2);
  }
}

}  // namespace vellumark::automation
