// SPDX-License-Identifier: MIT
//
// CountedObject: a component object that deletes itself with its last reference. It starts with
// one, and keeps the DLL loaded as long as it lives.
//
//     class ClassFactory final : public CountedObject<IClassFactory> { ... };
//
// QueryInterface is left to the object. Reference counting may happen on any thread.
#pragma once

#include <atomic>
#include <windows.h>
#include <unknwn.h>

#include "automation/server/module.h"

namespace vellumark::automation::server {

template <class... Interfaces>
class CountedObject : public Interfaces... {
 public:
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;
  CountedObject(CountedObject&&) = delete;
  CountedObject& operator=(CountedObject&&) = delete;

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  CountedObject() noexcept { LockModule(true); }
  virtual ~CountedObject() { LockModule(false); }  // by Release

 private:
  std::atomic<ULONG> references_ = 1;
};

}  // namespace vellumark::automation::server
