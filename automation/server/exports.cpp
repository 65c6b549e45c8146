// SPDX-License-Identifier: MIT
//
// The entry points of the DLL, which vellumark.def exports under these very names.
#include <new>
#include <windows.h>
#include <olectl.h>

#include "automation/server/class_factory.h"
#include "automation/server/guid.h"
#include "automation/server/module.h"
#include "automation/server/registration.h"

namespace vellumark::automation {
namespace {

HRESULT RegisterOrNot(bool install, Scope scope) noexcept {
  try {
    return install ? Register(scope) : Unregister(scope);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return SELFREG_E_CLASS;
  }
}

}  // namespace
}  // namespace vellumark::automation

using vellumark::automation::Scope;

STDAPI DllGetClassObject(REFCLSID class_id, REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto* const info = vellumark::automation::FindClass(class_id);
  if (info == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  auto* const factory = new (std::nothrow) vellumark::automation::ClassFactory(*info);
  if (factory == nullptr) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(riid, object);
  factory->Release();
  return result;
}

STDAPI DllCanUnloadNow() { return vellumark::automation::ModuleIsInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return vellumark::automation::RegisterOrNot(true, Scope::Machine); }

STDAPI DllUnregisterServer() { return vellumark::automation::RegisterOrNot(false, Scope::Machine); }

/// `regsvr32 /n /i:user vellumark.dll` registers for the user alone, without a right to change the
/// machine. Without a word it is the machine.
STDAPI DllInstall(BOOL install, LPCWSTR words) {
  Scope scope = Scope::Machine;
  if (words != nullptr && *words != L'\0') {
    if (lstrcmpiW(words, L"user") != 0) return E_INVALIDARG;
    scope = Scope::User;
  }
  return vellumark::automation::RegisterOrNot(install != FALSE, scope);
}
