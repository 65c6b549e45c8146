// SPDX-License-Identifier: MIT
//
// ClassFactory: makes the objects of one class. It answers to IUnknown and IClassFactory.
#pragma once

#include <atomic>
#include <windows.h>
#include <unknwn.h>

#include "automation/class_table.h"
#include "automation/server/module.h"

namespace vellumark::automation {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ClassInfo& info) noexcept : info_(info) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;
  ClassFactory(ClassFactory&&) = delete;
  ClassFactory& operator=(ClassFactory&&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  /// No aggregation: `outer` must be null.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID riid, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  ~ClassFactory() = default;  // by Release

  const ModuleUse use_;
  std::atomic<ULONG> references_ = 1;
  const ClassInfo& info_;
};

}  // namespace vellumark::automation
