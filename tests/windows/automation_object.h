// SPDX-License-Identifier: MIT
//
// A minimal automation client, which sends what script hosts cannot.
//
//     Outcome set = Invoke(pdf, id, {Number(3), Number(2), Number(1)}, {2, 1});
//
// The arguments stand as in the client's array: backwards, named ones first, their names beside.
#pragma once

#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <windows.h>
#include <oleauto.h>

#include "automation/class_table.h"
#include "automation/server/com_pointer.h"

namespace vellumark::tests {

using automation::server::ComPointer;

/// A variant of the client's, freed at the end of the expression or block.
struct ClientVariant : VARIANT {
  ClientVariant() noexcept : VARIANT{} {}
  ClientVariant(const ClientVariant&) = delete;
  ClientVariant& operator=(const ClientVariant&) = delete;
  ~ClientVariant() { VariantClear(this); }
};

struct Text : ClientVariant {
  explicit Text(std::wstring_view text) {
    vt = VT_BSTR;
    bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
};

struct Number : ClientVariant {
  explicit Number(double number) {
    vt = VT_R8;
    dblVal = number;
  }
};

/// A variant that has a type and no value, such as VT_NULL.
struct Bare : ClientVariant {
  explicit Bare(VARTYPE type) { vt = type; }
};

struct Omitted : ClientVariant {
  Omitted() {
    vt = VT_ERROR;
    scode = DISP_E_PARAMNOTFOUND;
  }
};

/// Refers to a variable of the type; VT_VARIANT for a variant.
struct Reference : ClientVariant {
  Reference(VARTYPE type, void* variable) {
    vt = static_cast<VARTYPE>(VT_BYREF | type);
    byref = variable;
  }
};

/// The outcome of one call.
struct Outcome {
  static constexpr UINT kNone = 99;

  Outcome(IDispatch* object, DISPID id, std::initializer_list<VARIANT> arguments,
          std::initializer_list<DISPID> names, int flags, LCID lcid) {
    DISPPARAMS list{const_cast<VARIANT*>(std::data(arguments)),
                    const_cast<DISPID*>(std::data(names)), static_cast<UINT>(arguments.size()),
                    static_cast<UINT>(names.size())};
    result = object->Invoke(id, IID_NULL, lcid, static_cast<WORD>(flags), &list, &value, &exception,
                            &wrong);
  }
  Outcome(const Outcome&) = delete;
  Outcome& operator=(const Outcome&) = delete;
  ~Outcome() {
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
  }

  HRESULT result = E_FAIL;
  ClientVariant value;
  EXCEPINFO exception{};
  UINT wrong = kNone;
};

inline Outcome Invoke(IDispatch* object, DISPID id, std::initializer_list<VARIANT> arguments = {},
                      std::initializer_list<DISPID> names = {}, int flags = DISPATCH_METHOD,
                      LCID lcid = LOCALE_NEUTRAL) {
  return {object, id, arguments, names, flags, lcid};
}

inline Outcome Let(IDispatch* object, DISPID id, const VARIANT& value) {
  return Invoke(object, id, {value}, {DISPID_PROPERTYPUT}, DISPATCH_PROPERTYPUT);
}

inline Outcome Get(IDispatch* object, DISPID id) {
  return Invoke(object, id, {}, {}, DISPATCH_PROPERTYGET);
}

/// The dispatch id of a member; DISPID_UNKNOWN if there is none.
inline DISPID IdOf(IDispatch* object, const wchar_t* name) {
  DISPID id = DISPID_UNKNOWN;
  auto* text = const_cast<wchar_t*>(name);
  object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_NEUTRAL, &id);
  return id;
}

inline std::string Hexadecimal(HRESULT result) {
  char text[16];
  std::snprintf(text, sizeof text, "%08lX", static_cast<unsigned long>(result));
  return text;
}

class Facts;

void CheckArguments(Facts& facts, IDispatch* pdf);
void CheckOutArguments(Facts& facts, IDispatch* pdf);
void CheckRefusals(Facts& facts, IDispatch* pdf);
void CheckRunTimeErrors(Facts& facts, IDispatch* new_document);
void CheckTypes(Facts& facts, IDispatch* object, const automation::ClassInfo& info);
void CheckTypeLibrary(Facts& facts, const wchar_t* file, SYSKIND system);

}  // namespace vellumark::tests
