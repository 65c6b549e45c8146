// SPDX-License-Identifier: MIT
#include "automation/server/variant_value.h"

#include <new>

#include "automation/server/bstr.h"

namespace vellumark::automation {
namespace {

VARTYPE VariantType(Type type) noexcept {
  switch (type) {
    case Type::None: return VT_EMPTY;
    case Type::Integer: return VT_I2;
    case Type::Byte: return VT_UI1;
    case Type::Boolean: return VT_BOOL;
    case Type::Single: return VT_R4;
    case Type::String: return VT_BSTR;
    case Type::Enumeration: return VT_I4;
  }
  return VT_EMPTY;
}

Value Read(VARIANT& variant) {
  switch (V_VT(&variant)) {
    case VT_I2: return std::int16_t{V_I2(&variant)};
    case VT_UI1: return std::uint8_t{V_UI1(&variant)};
    case VT_BOOL: return V_BOOL(&variant) != VARIANT_FALSE;
    case VT_R4: return V_R4(&variant);
    case VT_BSTR: return TextOf(V_BSTR(&variant));
    case VT_I4: return static_cast<std::int32_t>(V_I4(&variant));
    default: return {};
  }
}

/// Puts what a Value holds into a variant that is empty.
struct Giver {
  VARIANT& to;

  void operator()(std::monostate /*nothing*/) const noexcept {}
  void operator()(std::int16_t number) const noexcept { V_I2(&to) = number; }
  void operator()(std::uint8_t number) const noexcept { V_UI1(&to) = number; }
  void operator()(bool yes) const noexcept { V_BOOL(&to) = yes ? VARIANT_TRUE : VARIANT_FALSE; }
  void operator()(float number) const noexcept { V_R4(&to) = number; }
  void operator()(const std::string& text) const { V_BSTR(&to) = NewBstr(text); }
  void operator()(std::int32_t number) const noexcept { V_I4(&to) = number; }
};

}  // namespace

VARIANT& Dereference(VARIANT& argument) noexcept {
  VARIANT* variant = &argument;
  while (V_VT(variant) == (VT_BYREF | VT_VARIANT) && V_VARIANTREF(variant) != nullptr) {
    variant = V_VARIANTREF(variant);
  }
  return *variant;
}

bool IsOmitted(const VARIANT& argument) noexcept {
  return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

HRESULT Coerce(const VARIANT& source, VARTYPE type, LCID lcid, OwnedVariant& result) {
  if (V_ISBYREF(&source) && V_BYREF(&source) == nullptr) return DISP_E_TYPEMISMATCH;
  const HRESULT changed =
      VariantChangeTypeEx(&*result, const_cast<VARIANT*>(&source), lcid, 0, type);
  if (changed == E_OUTOFMEMORY) throw std::bad_alloc();
  // An object is asked for its default property and may answer anything, which is not about the
  // member being called.
  return SUCCEEDED(changed) || changed == DISP_E_OVERFLOW ? changed : DISP_E_TYPEMISMATCH;
}

HRESULT TakeValue(VARIANT& argument, Type type, LCID lcid, Value& value) {
  OwnedVariant converted;
  const HRESULT coerced = Coerce(Dereference(argument), VariantType(type), lcid, converted);
  if (SUCCEEDED(coerced)) value = Read(*converted);
  return coerced;
}

Value ZeroOf(Type type) {
  OwnedVariant zero;  // all bits of an empty variant are 0
  V_VT(&*zero) = VariantType(type);
  return Read(*zero);
}

void GiveValue(const Value& value, OwnedVariant& result) {
  std::visit(Giver{*result}, value);
  V_VT(&*result) = VariantType(static_cast<Type>(value.index()));
}

}  // namespace vellumark::automation
