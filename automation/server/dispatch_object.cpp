// SPDX-License-Identifier: MIT
#include "automation/server/dispatch_object.h"

#include <algorithm>
#include <new>
#include <span>

#include "automation/server/bstr.h"
#include "automation/server/exception_information.h"
#include "automation/server/guid.h"
#include "automation/server/invocation.h"
#include "automation/server/type_library.h"

namespace vellumark::automation {
namespace {

std::shared_ptr<Document> NewDocument(const ClassInfo& info) {
  if (info.members == Class::PDF) return std::make_shared<PDF>();
  if (info.members == Class::PS) return std::make_shared<PS>();
  return nullptr;
}

std::string NameOf(const OLECHAR* name) { return name == nullptr ? std::string() : Utf8(name); }

HRESULT AnswerTypeInfo(std::string_view id, ITypeInfo** type) noexcept {
  if (type == nullptr) return E_POINTER;
  try {
    return LoadTypeInfo(id, type);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace

DispatchObject::DispatchObject(const ClassInfo& info)
    : info_(info), interface_id_(ToGuid(info.interface_id)), document_(NewDocument(info)) {
  if (info.members) members_.emplace(*info.members);
}

HRESULT DispatchObject::QueryInterface(REFIID riid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IDispatch) ||
      IsEqualIID(riid, interface_id_)) {
    *object = static_cast<IDispatch*>(this);
  } else if (IsEqualIID(riid, IID_IProvideClassInfo)) {
    *object = static_cast<IProvideClassInfo*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT index, LCID /*lcid*/, ITypeInfo** type) {
  if (type != nullptr) *type = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return AnswerTypeInfo(info_.interface_id, type);
}

HRESULT DispatchObject::GetClassInfo(ITypeInfo** type) {
  return AnswerTypeInfo(info_.class_id, type);
}

HRESULT DispatchObject::GetIDsOfNames(REFIID riid, OLECHAR** names, UINT count, LCID /*lcid*/,
                                      DISPID* ids) {
  if (!IsEqualIID(riid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  try {
    return FindNames(names, count, ids);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

/// The first name is a member's, the others its parameters'.
HRESULT DispatchObject::FindNames(OLECHAR** names, UINT count, DISPID* ids) const {
  std::fill_n(ids, count, DISPID_UNKNOWN);
  const Member* const member = members_ ? members_->Find(NameOf(names[0])) : nullptr;
  if (member == nullptr) return DISP_E_UNKNOWNNAME;
  ids[0] = member->id;
  bool all_known = true;
  for (UINT i = 1; i < count; ++i) {
    ids[i] = FindParameter(*member, NameOf(names[i]));
    all_known = all_known && ids[i] != DISPID_UNKNOWN;
  }
  return all_known ? S_OK : DISP_E_UNKNOWNNAME;
}

const Member* DispatchObject::Find(DISPID id) const noexcept {
  return members_ ? members_->Find(static_cast<std::int32_t>(id)) : nullptr;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID riid, LCID lcid, WORD flags, DISPPARAMS* arguments,
                               VARIANT* result, EXCEPINFO* exception, UINT* wrong_argument) {
  if (result != nullptr) VariantInit(result);
  if (!IsEqualIID(riid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  const Member* const member = Find(id);
  if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
  if (arguments == nullptr || !IsSound(*arguments)) return E_INVALIDARG;

  // A client may let go of the object while it waits for an argument's default property.
  AddRef();
  UINT wrong = 0;
  HRESULT invoked = S_OK;
  try {
    invoked = InvokeMember(*member, lcid, flags, *arguments, result, wrong);
  } catch (...) {
    invoked = DescribeException(exception);
  }
  Release();
  if (FAILED(invoked) && wrong_argument != nullptr) *wrong_argument = wrong;
  return invoked;
}

HRESULT DispatchObject::InvokeMember(const Member& member, LCID lcid, WORD flags,
                                     const DISPPARAMS& arguments, VARIANT* result, UINT& wrong) {
  Invocation invocation(*document_, member, lcid);
  // Some clients let with both kinds of assignment; assignment of a reference alone is not known.
  if ((flags & DISPATCH_PROPERTYPUT) != 0) {
    return member.Has(Kind::Let) ? invocation.Let(arguments, wrong) : DISP_E_MEMBERNOTFOUND;
  }
  // A call and a property with parameters look alike in many languages, which then say both.
  const WORD needed = member.property ? DISPATCH_PROPERTYGET : DISPATCH_METHOD;
  if ((flags & needed) == 0) return DISP_E_MEMBERNOTFOUND;
  return invocation.Call(arguments, result, wrong);
}

}  // namespace vellumark::automation
