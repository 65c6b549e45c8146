// SPDX-License-Identifier: MIT
#include "automation/server/class_factory.h"

#include <new>

#include "automation/server/dispatch_object.h"

namespace vellumark::automation {

HRESULT ClassFactory::QueryInterface(REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IClassFactory)) {
    return E_NOINTERFACE;
  }
  *object = this;
  AddRef();
  return S_OK;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  try {
    auto* const made = new DispatchObject(info_);
    const HRESULT result = made->QueryInterface(riid, object);
    made->Release();
    return result;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_UNEXPECTED;
  }
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  LockModule(lock != FALSE);
  return S_OK;
}

}  // namespace vellumark::automation
