// SPDX-License-Identifier: MIT
//
// DispatchObject: a PDF, PS or Enumerations as automation clients hold it.
//
//     DispatchObject* object = new DispatchObject(info);    // has one reference
//     object->QueryInterface(riid, result);
//     object->Release();
//
// It has the interfaces IUnknown, IDispatch, the class's own dispatch interface and
// IProvideClassInfo. Members, names and types are those of the member table; dispatch ids of
// parameters are their places. Reference counting may happen on any thread, calls on the object's
// own thread only.
#pragma once

#include <memory>
#include <optional>
#include <windows.h>
#include <ocidl.h>

#include "automation/class_table.h"
#include "automation/server/counted_object.h"

namespace vellumark::automation::server {

class DispatchObject final : public CountedObject<IDispatch, IProvideClassInfo> {
 public:
  /// Constructs the document, which shows its notice and waits until the user has closed it.
  /// Throws std::bad_alloc.
  explicit DispatchObject(const ClassInfo& info);

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID lcid, ITypeInfo** type) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, OLECHAR** names, UINT count, LCID lcid,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID riid, LCID lcid, WORD flags,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrong_argument) override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** type) override;

 private:
  [[nodiscard]] const Member* Find(DISPID id) const noexcept;
  HRESULT FindNames(OLECHAR** names, UINT count, DISPID* ids) const;
  HRESULT InvokeMember(const Member& member, LCID lcid, WORD flags, const DISPPARAMS& arguments,
                       VARIANT* result, UINT& wrong);

  const ClassInfo& info_;
  const GUID interface_id_;
  std::optional<ClassMembers> members_;  // Enumerations has none
  std::shared_ptr<Document> document_;
};

}  // namespace vellumark::automation::server
