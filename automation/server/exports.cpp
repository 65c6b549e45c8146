// SPDX-License-Identifier: MIT
//
// The entry points of the DLL, which vellumark.def exports under these very names, and the class
// factories that they hand out.
#include <new>
#include <windows.h>
#include <unknwn.h>

#include "automation/class_table.h"
#include "automation/server/counted_object.h"
#include "automation/server/dispatch_object.h"
#include "automation/server/module.h"
#include "automation/server/registration.h"
#include "automation/server/windows_text.h"

namespace vellumark::automation::server {
namespace {

/// Makes the objects of one class.
class ClassFactory final : public CountedObject<IClassFactory> {
 public:
  explicit ClassFactory(const ClassInfo& info) noexcept : info_(info) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IClassFactory)) {
      return E_NOINTERFACE;
    }
    *object = this;
    AddRef();
    return S_OK;
  }

  /// No aggregation: `outer` must be null.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return Guarded([&] {
      auto* const made = new DispatchObject(info_);
      const HRESULT result = made->QueryInterface(riid, object);
      made->Release();
      return result;
    });
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    LockModule(lock != FALSE);
    return S_OK;
  }

 private:
  const ClassInfo& info_;
};

/// The class with that CLSID; null if there is none.
const ClassInfo* FindClass(REFCLSID id) noexcept {
  for (const ClassInfo& info : Classes()) {
    if (IsEqualGUID(id, ToGuid(info.class_id))) return &info;
  }
  return nullptr;
}

HRESULT RegisterOrNot(bool install, Scope scope) noexcept {
  return Guarded([&] { return install ? Register(scope) : Unregister(scope); });
}

}  // namespace
}  // namespace vellumark::automation::server

using namespace vellumark::automation::server;

STDAPI DllGetClassObject(REFCLSID class_id, REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  const auto* const info = FindClass(class_id);
  if (info == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  auto* const factory = new (std::nothrow) ClassFactory(*info);
  if (factory == nullptr) return E_OUTOFMEMORY;
  const HRESULT result = factory->QueryInterface(riid, object);
  factory->Release();
  return result;
}

STDAPI DllCanUnloadNow() { return ModuleIsInUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return RegisterOrNot(true, Scope::Machine); }

STDAPI DllUnregisterServer() { return RegisterOrNot(false, Scope::Machine); }

/// `regsvr32 /n /i:user vellumark.dll` registers for the user alone, without the right to change
/// the machine; without a word it registers for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR words) {
  Scope scope = Scope::Machine;
  if (words != nullptr && *words != L'\0') {
    if (lstrcmpiW(words, L"user") != 0) return E_INVALIDARG;
    scope = Scope::User;
  }
  return RegisterOrNot(install != FALSE, scope);
}
