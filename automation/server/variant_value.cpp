// SPDX-License-Identifier: MIT
#include "automation/server/variant_value.h"

#include <cmath>
#include <new>

#include "automation/server/windows_text.h"

namespace vellumark::automation::server {
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
    case VT_BSTR: return Utf8(V_BSTR(&variant));
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
  void operator()(const Bytes& /*never a result*/) const noexcept {}
};

/// Gives back the data of an array that was accessed.
class ArrayAccess {
 public:
  explicit ArrayAccess(SAFEARRAY& array) noexcept : array_(array) {}
  ArrayAccess(const ArrayAccess&) = delete;
  ArrayAccess& operator=(const ArrayAccess&) = delete;
  ArrayAccess(ArrayAccess&&) = delete;
  ArrayAccess& operator=(ArrayAccess&&) = delete;
  ~ArrayAccess() { SafeArrayUnaccessData(&array_); }

 private:
  SAFEARRAY& array_;
};

bool IsFloating(VARTYPE type) noexcept { return type == VT_R4 || type == VT_R8 || type == VT_DATE; }

HRESULT Change(const VARIANT& source, VARTYPE type, LCID lcid, OwnedVariant& result) {
  const HRESULT changed =
      VariantChangeTypeEx(&*result, const_cast<VARIANT*>(&source), lcid, 0, type);
  if (changed == E_OUTOFMEMORY) throw std::bad_alloc();
  return changed;
}

/// A number to an integer. Between integers the runtime does not always check the range; from a
/// double it does, and a double holds every number that a member takes or returns.
HRESULT ChangeToInteger(const VARIANT& number, VARTYPE type, LCID lcid, OwnedVariant& result) {
  OwnedVariant exact;
  const HRESULT changed = Change(number, VT_R8, lcid, exact);
  if (FAILED(changed)) return changed;
  return std::isnan(V_R8(&*exact)) ? DISP_E_OVERFLOW : Change(*exact, type, lcid, result);
}

}  // namespace

VARIANT& Dereference(VARIANT& argument) noexcept {
  constexpr int kDeepest = 8;  // a variant that refers to itself has no end
  VARIANT* variant = &argument;
  for (int depth = 0; depth < kDeepest; ++depth) {
    if (V_VT(variant) != (VT_BYREF | VT_VARIANT) || V_VARIANTREF(variant) == nullptr) break;
    variant = V_VARIANTREF(variant);
  }
  return *variant;
}

bool IsOmitted(const VARIANT& argument) noexcept {
  return V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND;
}

bool IsInteger(VARTYPE type) noexcept {
  switch (type) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT: return true;
    default: return false;
  }
}

HRESULT Coerce(const VARIANT& source, VARTYPE type, LCID lcid, OwnedVariant& result) {
  if (V_ISBYREF(&source) && V_BYREF(&source) == nullptr) return DISP_E_TYPEMISMATCH;
  const auto from = static_cast<VARTYPE>(V_VT(&source) & ~VT_BYREF);
  const bool checked = IsInteger(type) && (IsInteger(from) || IsFloating(from));
  const HRESULT changed =
      checked ? ChangeToInteger(source, type, lcid, result) : Change(source, type, lcid, result);
  // An object is asked for its default property and may fail with any result, which would not be
  // about the member being called.
  return SUCCEEDED(changed) || changed == DISP_E_OVERFLOW ? changed : DISP_E_TYPEMISMATCH;
}

HRESULT TakeValue(VARIANT& argument, Type type, LCID lcid, Value& value) {
  OwnedVariant converted;
  const HRESULT coerced = Coerce(Dereference(argument), VariantType(type), lcid, converted);
  if (SUCCEEDED(coerced)) value = Read(*converted);
  return coerced;
}

bool IsBytes(const VARIANT& argument) noexcept {
  return (V_VT(&argument) & ~VT_BYREF) == (VT_ARRAY | VT_UI1);
}

HRESULT TakeBytes(const VARIANT& argument, Value& value) {
  SAFEARRAY* array = V_ISBYREF(&argument) ? nullptr : V_ARRAY(&argument);
  if (V_ISBYREF(&argument) && V_ARRAYREF(&argument) != nullptr) array = *V_ARRAYREF(&argument);
  LONG first = 0;
  LONG last = 0;
  void* data = nullptr;
  if (array == nullptr || SafeArrayGetDim(array) != 1 ||
      FAILED(SafeArrayGetLBound(array, 1, &first)) || FAILED(SafeArrayGetUBound(array, 1, &last)) ||
      FAILED(SafeArrayAccessData(array, &data))) {
    return DISP_E_TYPEMISMATCH;
  }
  const ArrayAccess access(*array);
  const auto* const bytes = static_cast<const std::uint8_t*>(data);
  value = Bytes(bytes, bytes + (std::int64_t{last} - first + 1));
  return S_OK;
}

void GiveValue(const Value& value, OwnedVariant& result) {
  std::visit(Giver{*result}, value);
  V_VT(&*result) = VariantType(static_cast<Type>(value.index()));
}

}  // namespace vellumark::automation::server
