// SPDX-License-Identifier: MIT
#include "platform/windows_resource.h"

#include <windows.h>

namespace vellumark::platform {
namespace {

constexpr char kInThisModule = 0;

HMODULE ThisModule() {
  HMODULE module = nullptr;
  const DWORD flags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  return GetModuleHandleExA(flags, &kInThisModule, &module) != 0 ? module : nullptr;
}

}  // namespace

std::span<const std::uint8_t> WindowsResource(int number) noexcept {
  const HMODULE module = ThisModule();
  if (module == nullptr || number < 0 || number > 0xFFFF) return {};
  const HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(number), RT_RCDATA);
  if (found == nullptr) return {};
  const HGLOBAL loaded = LoadResource(module, found);
  const void* const bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
  if (bytes == nullptr) return {};
  return {static_cast<const std::uint8_t*>(bytes), SizeofResource(module, found)};
}

}  // namespace vellumark::platform
