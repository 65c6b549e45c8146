// SPDX-License-Identifier: MIT
#include "automation/server/dispatch_object.h"

#include <algorithm>
#include <new>
#include <span>
#include <stdexcept>
#include <string>

#include <vellumark/run_time_error.h>

#include "automation/server/invocation.h"
#include "automation/server/module.h"
#include "automation/server/windows_text.h"

namespace vellumark::automation::server {
namespace {

std::shared_ptr<Document> NewDocument(const ClassInfo& info) {
  if (info.members == Class::PDF) return std::make_shared<PDF>();
  if (info.members == Class::PS) return std::make_shared<PS>();
  return nullptr;
}

std::string NameOf(const OLECHAR* name) { return name == nullptr ? std::string() : Utf8(name); }

HRESULT HandOutTypeInfo(std::string_view id, ITypeInfo** type) noexcept {
  if (type == nullptr) return E_POINTER;
  return Guarded([&] { return LoadTypeInfo(id, type); });
}

/// FACILITY_CONTROL, the facility of automation's run-time errors.
constexpr unsigned kRunTimeErrors = 0x800A0000;

/// Null if there is no memory for it: the client then learns the number only.
BSTR Sentence(std::string_view text) noexcept {
  try {
    std::string sentence(text);
    if (sentence.front() >= 'a' && sentence.front() <= 'z') {
      sentence.front() = static_cast<char>(sentence.front() - 'a' + 'A');
    }
    return NewBstr(sentence);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

HRESULT Describe(const RunTimeError& error, EXCEPINFO* information) noexcept {
  if (information != nullptr) {
    *information = EXCEPINFO{};
    information->bstrSource = Sentence(kLibraryName);
    information->bstrDescription = Sentence(error.what());
    information->scode = static_cast<SCODE>(kRunTimeErrors + static_cast<unsigned>(error.number()));
  }
  return DISP_E_EXCEPTION;
}

/// To be called in a catch block: tells the client about the exception in `information`, which may
/// be null, and returns the result of the call. The client learns the number of a run-time error,
/// which VBScript shows as Err.Number and JScript as the low 16 bits of error.number; the source
/// "Vellumark"; and a sentence.
HRESULT DescribeException(EXCEPINFO* information) noexcept {
  try {
    throw;
  } catch (const RunTimeError& error) {
    return Describe(error, information);
  } catch (const std::bad_alloc&) {
    return Describe(RunTimeError(RunTimeError::OutOfMemory), information);
  } catch (const std::length_error&) {  // a text longer than any memory
    return Describe(RunTimeError(RunTimeError::OutOfMemory), information);
  } catch (...) {
    return E_UNEXPECTED;
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
  return HandOutTypeInfo(info_.interface_id, type);
}

HRESULT DispatchObject::GetClassInfo(ITypeInfo** type) {
  return HandOutTypeInfo(info_.class_id, type);
}

HRESULT DispatchObject::GetIDsOfNames(REFIID riid, OLECHAR** names, UINT count, LCID /*lcid*/,
                                      DISPID* ids) {
  if (!IsEqualIID(riid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  return Guarded([&] { return FindNames(names, count, ids); });
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

  // A client may release the object while it is asked for an argument's default property.
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
  // Some clients assign with both kinds of assignment; that of a reference alone is not supported.
  if ((flags & DISPATCH_PROPERTYPUT) != 0) {
    return member.Has(Kind::Let) ? invocation.Let(arguments, wrong) : DISP_E_MEMBERNOTFOUND;
  }
  // In many languages a call and a property with parameters look alike: these ask for both.
  const WORD needed = member.property ? DISPATCH_PROPERTYGET : DISPATCH_METHOD;
  if ((flags & needed) == 0) return DISP_E_MEMBERNOTFOUND;
  return invocation.Call(arguments, result, wrong);
}

}  // namespace vellumark::automation::server
