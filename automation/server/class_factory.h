// SPDX-License-Identifier: MIT
//
// ClassFactory: makes the objects of one class. It answers to IUnknown and IClassFactory.
#pragma once

#include <windows.h>
#include <unknwn.h>

#include "automation/class_table.h"
#include "automation/server/counted_object.h"

namespace vellumark::automation {

class ClassFactory final : public CountedObject<IClassFactory> {
 public:
  explicit ClassFactory(const ClassInfo& info) noexcept : info_(info) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;

  /// No aggregation: `outer` must be null.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  const ClassInfo& info_;
};

}  // namespace vellumark::automation
