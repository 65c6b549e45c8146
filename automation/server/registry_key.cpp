// SPDX-License-Identifier: MIT
#include "automation/server/registry_key.h"

#include <utility>

namespace vellumark::automation {

LSTATUS RegistryKey::Create(HKEY parent, const std::wstring& path) noexcept {
  Close();
  return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                         KEY_READ | KEY_WRITE, nullptr, &key_, nullptr);
}

LSTATUS RegistryKey::Open(HKEY parent, const std::wstring& path) noexcept {
  Close();
  return RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ | KEY_WRITE | DELETE, &key_);
}

LSTATUS RegistryKey::SetText(const std::wstring& name, const std::wstring& text) noexcept {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  return RegSetValueExW(key_, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                        size);
}

LSTATUS RegistryKey::DeleteTree(const std::wstring& path) noexcept {
  const LSTATUS deleted = RegDeleteTreeW(key_, path.c_str());
  return deleted == ERROR_FILE_NOT_FOUND || deleted == ERROR_PATH_NOT_FOUND ? ERROR_SUCCESS
                                                                            : deleted;
}

bool RegistryKey::HasKeysIn(const std::wstring& path) const noexcept {
  HKEY key = nullptr;
  if (RegOpenKeyExW(key_, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  DWORD keys = 0;
  RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, nullptr, nullptr,
                   nullptr, nullptr, nullptr);
  RegCloseKey(key);
  return keys != 0;
}

void RegistryKey::Close() noexcept {
  if (HKEY closed = std::exchange(key_, nullptr)) RegCloseKey(closed);
}

}  // namespace vellumark::automation
