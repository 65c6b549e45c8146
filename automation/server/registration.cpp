// SPDX-License-Identifier: MIT
#include "automation/server/registration.h"

#include <string>
#include <string_view>
#include <windows.h>
#include <olectl.h>

#include "automation/class_table.h"
#include "automation/server/bstr.h"
#include "automation/server/module.h"
#include "automation/server/registry_key.h"

namespace vellumark::automation {
namespace {

constexpr const wchar_t* kClassesKey = L"Software\\Classes";
constexpr const wchar_t* kSystem = sizeof(void*) == 8 ? L"win64" : L"win32";

/// The system's own proxy for dispatch interfaces.
constexpr std::wstring_view kDispatchProxy = L"{00020420-0000-0000-C000-000000000046}";

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

/// Writes keys until one fails, and then no more.
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

/// Deletes keys, also after one that failed, whose error it keeps.
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

}  // namespace vellumark::automation
