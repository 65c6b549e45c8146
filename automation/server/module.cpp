// SPDX-License-Identifier: MIT
#include "automation/server/module.h"

#include <atomic>
#include <oleauto.h>

#include "automation/server/com_pointer.h"
#include "automation/server/windows_text.h"

namespace vellumark::automation::server {
namespace {

std::atomic<long> uses = 0;
constexpr char kInThisModule = 0;

constexpr std::size_t kLongestPath = 32767;

}  // namespace

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
    if (length < path.size()) {  // otherwise it was cut off
      path.resize(length);
      return path;
    }
    if (path.size() >= kLongestPath) return {};
    path.resize(path.size() * 2);
  }
}

HRESULT LoadTypeInfo(std::string_view id, ITypeInfo** info) {
  *info = nullptr;
  // From the DLL itself and not by registration: it describes this very file. The system shares a
  // library that is in use, so asking again is cheap.
  ComPointer<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(ToGuid(id), info);
}

}  // namespace vellumark::automation::server
