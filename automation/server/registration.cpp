// SPDX-License-Identifier: MIT
#include "automation/server/registration.h"

#include <string>
#include <string_view>
#include <utility>
#include <windows.h>
#include <olectl.h>

#include "automation/class_table.h"
#include "automation/server/module.h"
#include "automation/server/windows_text.h"

namespace vellumark::automation::server {
namespace {

constexpr const wchar_t* kClassesKey = L"Software\\Classes";
constexpr const wchar_t* kSystem = sizeof(void*) == 8 ? L"win64" : L"win32";

/// The system's own proxy for dispatch interfaces.
constexpr std::wstring_view kDispatchProxy = L"{00020420-0000-0000-C000-000000000046}";

/// An open key, closed at the end of the block.
class RegistryKey {
 public:
  RegistryKey() = default;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  RegistryKey(RegistryKey&&) = delete;
  RegistryKey& operator=(RegistryKey&&) = delete;
  ~RegistryKey() { Close(); }

  /// Opens the key below `parent` for writing, and makes the keys on the way that are missing.
  [[nodiscard]] LSTATUS Create(HKEY parent, const std::wstring& path) noexcept;

  /// Opens a key that exists, for reading and writing.
  [[nodiscard]] LSTATUS Open(HKEY parent, const std::wstring& path) noexcept;

  /// An empty `name` is the key's default value.
  [[nodiscard]] LSTATUS SetText(const std::wstring& name, const std::wstring& text) noexcept;

  /// Deletes a key below this one with all that it holds. Does nothing if there is none.
  [[nodiscard]] LSTATUS DeleteTree(const std::wstring& path) noexcept;

  /// Whether there is a key of that name below this one that has keys itself.
  [[nodiscard]] bool HasKeysIn(const std::wstring& path) const noexcept;

  [[nodiscard]] HKEY Handle() const noexcept { return key_; }

 private:
  void Close() noexcept;

  HKEY key_ = nullptr;
};

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

std::wstring Braced(std::string_view id) {
  std::wstring text = L"{";
  text += Wide(id);
  return text += L'}';
}

std::wstring LibraryVersion() {
  std::wstring text = std::to_wstring(kLibraryMajor);
  text += L'.';
  return text += std::to_wstring(kLibraryMinor);
}

std::wstring Path(std::wstring folder, std::wstring_view name) {
  folder += L'\\';
  return folder += name;
}

std::wstring ClassKey(const ClassInfo& info) { return Path(L"CLSID", Braced(info.class_id)); }
std::wstring InterfaceKey(const ClassInfo& info) {
  return Path(L"Interface", Braced(info.interface_id));
}
std::wstring LibraryKey() { return Path(L"TypeLib", Braced(kLibraryId)); }
std::wstring LibraryVersionKey() { return Path(LibraryKey(), LibraryVersion()); }
std::wstring LibraryLanguageKey() { return Path(LibraryVersionKey(), L"0"); }

/// Writes keys until one fails; after that, none.
class RegistryWriter {
 public:
  explicit RegistryWriter(HKEY root) noexcept : root_(root) {}

  /// The key's default value.
  void Write(const std::wstring& path, std::wstring_view text) { Write(path, L"", text); }

  void Write(const std::wstring& path, std::wstring_view name, std::wstring_view text) {
    RegistryKey key;
    if (status_ == ERROR_SUCCESS) status_ = key.Create(root_, path);
    if (status_ == ERROR_SUCCESS) {
      status_ = key.SetText(std::wstring(name), std::wstring(text));
    }
  }

  [[nodiscard]] LSTATUS Status() const noexcept { return status_; }

 private:
  HKEY root_;
  LSTATUS status_ = ERROR_SUCCESS;
};

void WriteClass(RegistryWriter& writer, const ClassInfo& info, const std::wstring& module) {
  const std::wstring key = ClassKey(info);
  writer.Write(key, Wide(info.help));
  writer.Write(Path(key, L"InprocServer32"), module);
  writer.Write(Path(key, L"InprocServer32"), L"ThreadingModel", L"Apartment");
  writer.Write(Path(key, L"ProgID"), Wide(info.versioned_program_id));
  writer.Write(Path(key, L"VersionIndependentProgID"), Wide(info.program_id));
  writer.Write(Path(key, L"Programmable"), L"");
  writer.Write(Path(key, L"TypeLib"), Braced(kLibraryId));
  writer.Write(Path(key, L"Version"), LibraryVersion());
}

void WriteProgramIds(RegistryWriter& writer, const ClassInfo& info) {
  const std::wstring newest = Wide(info.program_id);
  const std::wstring versioned = Wide(info.versioned_program_id);
  writer.Write(newest, Wide(info.help));
  writer.Write(Path(newest, L"CLSID"), Braced(info.class_id));
  writer.Write(Path(newest, L"CurVer"), versioned);
  writer.Write(versioned, Wide(info.help));
  writer.Write(Path(versioned, L"CLSID"), Braced(info.class_id));
}

void WriteInterface(RegistryWriter& writer, const ClassInfo& info) {
  const std::wstring key = InterfaceKey(info);
  writer.Write(key, Wide(info.dispatch_interface));
  writer.Write(Path(key, L"ProxyStubClsid"), kDispatchProxy);
  writer.Write(Path(key, L"ProxyStubClsid32"), kDispatchProxy);
  writer.Write(Path(key, L"TypeLib"), Braced(kLibraryId));
  writer.Write(Path(key, L"TypeLib"), L"Version", LibraryVersion());
}

void WriteLibrary(RegistryWriter& writer, const std::wstring& module) {
  const std::wstring key = LibraryVersionKey();
  writer.Write(key, Wide(kLibraryHelp));
  writer.Write(Path(LibraryLanguageKey(), kSystem), module);
  writer.Write(Path(key, L"FLAGS"), L"0");
  writer.Write(Path(key, L"HELPDIR"), module.substr(0, module.find_last_of(L'\\')));
}

LSTATUS WriteAll(HKEY root, const std::wstring& module) {
  RegistryWriter writer(root);
  for (const ClassInfo& info : Classes()) {
    WriteClass(writer, info, module);
    WriteProgramIds(writer, info);
    WriteInterface(writer, info);
  }
  WriteLibrary(writer, module);
  return writer.Status();
}

/// Deletes keys. Goes on past one that failed, and keeps the first error.
class RegistryEraser {
 public:
  explicit RegistryEraser(RegistryKey& root) noexcept : root_(root) {}

  void Erase(const std::wstring& path) noexcept {
    const LSTATUS deleted = root_.DeleteTree(path);
    if (status_ == ERROR_SUCCESS) status_ = deleted;
  }

  [[nodiscard]] LSTATUS Status() const noexcept { return status_; }

 private:
  RegistryKey& root_;
  LSTATUS status_ = ERROR_SUCCESS;
};

LSTATUS EraseAll(RegistryKey& root) {
  RegistryEraser eraser(root);
  eraser.Erase(Path(LibraryLanguageKey(), kSystem));
  const bool last = !root.HasKeysIn(LibraryLanguageKey());  // of the DLLs of 32 and 64 bits
  for (const ClassInfo& info : Classes()) {
    eraser.Erase(ClassKey(info));
    eraser.Erase(InterfaceKey(info));
    if (!last) continue;
    eraser.Erase(Wide(info.program_id));
    eraser.Erase(Wide(info.versioned_program_id));
  }
  if (last) eraser.Erase(LibraryVersionKey());
  if (!root.HasKeysIn(LibraryKey())) eraser.Erase(LibraryKey());  // else it has other versions
  return eraser.Status();
}

HKEY Hive(Scope scope) noexcept {
  return scope == Scope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

}  // namespace

HRESULT Register(Scope scope) {
  const std::wstring module = ModulePath();
  if (module.empty()) return SELFREG_E_CLASS;
  RegistryKey root;
  LSTATUS status = root.Create(Hive(scope), kClassesKey);
  if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
  status = WriteAll(root.Handle(), module);
  if (status == ERROR_SUCCESS) return S_OK;
  // The error of the failed step is the one that matters.
  static_cast<void>(EraseAll(root));
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

HRESULT Unregister(Scope scope) {
  RegistryKey root;
  LSTATUS status = root.Open(Hive(scope), kClassesKey);
  if (status == ERROR_FILE_NOT_FOUND) return S_OK;
  if (status == ERROR_SUCCESS) status = EraseAll(root);
  return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

}  // namespace vellumark::automation::server
