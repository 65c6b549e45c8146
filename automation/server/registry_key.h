// SPDX-License-Identifier: MIT
//
// RegistryKey: an open key of the registry, closed at the end of the block.
//
//     RegistryKey key;
//     LSTATUS status = key.Create(HKEY_CURRENT_USER, L"Software\\Classes\\Vellumark.PDF");
//     if (status == ERROR_SUCCESS) status = key.SetText(L"", L"Class to generate PDF documents.");
#pragma once

#include <string>
#include <windows.h>

namespace vellumark::automation {

class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  RegistryKey(RegistryKey&&) = delete;
  RegistryKey& operator=(RegistryKey&&) = delete;
  ~RegistryKey() { Close(); }

  /// Opens the key below `parent` for writing, with all keys on the way made where missing.
  [[nodiscard]] LSTATUS Create(HKEY parent, const std::wstring& path) noexcept;

  /// Opens a key that exists, for reading and writing.
  [[nodiscard]] LSTATUS Open(HKEY parent, const std::wstring& path) noexcept;

  /// An empty `name` is the key's default value.
  [[nodiscard]] LSTATUS SetText(const std::wstring& name, const std::wstring& text) noexcept;

  /// Deletes a key below this one with all that is in it. That there is none is no error.
  [[nodiscard]] LSTATUS DeleteTree(const std::wstring& path) noexcept;

  /// Whether there is a key of that name below this one that has keys itself.
  [[nodiscard]] bool HasKeysIn(const std::wstring& path) const noexcept;

  [[nodiscard]] HKEY Handle() const noexcept { return key_; }

 private:
  void Close() noexcept;

  HKEY key_ = nullptr;
};

}  // namespace vellumark::automation
