// SPDX-License-Identifier: MIT
#include "automation/server/out_argument.h"

#include <utility>

namespace vellumark::automation::server {
namespace {

VARTYPE ReferredType(const VARIANT& reference) noexcept {
  return static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
}

bool CanReceive(VARTYPE type) noexcept {
  switch (type) {
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
    case VT_BOOL:
    case VT_BSTR: return true;
    default: return IsInteger(type);
  }
}

/// A variant whose array somebody is iterating over cannot be replaced.
bool IsLocked(const VARIANT& variant) noexcept {
  return V_ISARRAY(&variant) && V_ARRAY(&variant) != nullptr && V_ARRAY(&variant)->cLocks != 0;
}

/// Moves `value`, of the type that `reference` refers to, into the variable.
void StoreTyped(VARIANT& reference, OwnedVariant& value) noexcept {
  switch (ReferredType(reference)) {
    case VT_I1:
    case VT_UI1: *V_UI1REF(&reference) = V_UI1(&*value); break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: *V_I2REF(&reference) = V_I2(&*value); break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT: *V_I4REF(&reference) = V_I4(&*value); break;
    case VT_R4: *V_R4REF(&reference) = V_R4(&*value); break;
    case VT_R8:
    case VT_DATE: *V_R8REF(&reference) = V_R8(&*value); break;
    case VT_I8:
    case VT_UI8: *V_I8REF(&reference) = V_I8(&*value); break;
    case VT_CY: *V_CYREF(&reference) = V_CY(&*value); break;
    case VT_BSTR: std::swap(*V_BSTRREF(&reference), V_BSTR(&*value)); break;
    case VT_DECIMAL:
      *V_DECIMALREF(&reference) = V_DECIMAL(&*value);
      V_DECIMALREF(&reference)->wReserved = 0;  // a variant keeps its type there
      break;
    default: break;
  }
}

}  // namespace

HRESULT OutArgument::Find(VARIANT& argument) noexcept {
  VARIANT& found = Dereference(argument);
  if (V_ISBYREF(&found)) {
    if (V_BYREF(&found) == nullptr || !CanReceive(ReferredType(found))) return DISP_E_TYPEMISMATCH;
    reference_ = &found;
  } else if (&found != &argument) {
    if (IsLocked(found)) return DISP_E_ARRAYISLOCKED;
    variant_ = &found;
  }
  return S_OK;
}

HRESULT OutArgument::Prepare(const Value& value, LCID lcid) {
  if (reference_ == nullptr) {
    if (variant_ != nullptr) GiveValue(value, prepared_);
    return S_OK;
  }
  OwnedVariant given;
  GiveValue(value, given);
  const HRESULT coerced = Coerce(*given, ReferredType(*reference_), lcid, prepared_);
  return SUCCEEDED(coerced) ? S_OK : DISP_E_TYPEMISMATCH;
}

void OutArgument::Store() noexcept {
  if (reference_ != nullptr) StoreTyped(*reference_, prepared_);
  if (variant_ != nullptr)
    std::swap(*variant_, *prepared_);  // the old content is freed with this object
}

}  // namespace vellumark::automation::server
