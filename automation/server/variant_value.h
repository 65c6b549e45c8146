// SPDX-License-Identifier: MIT
//
// VARIANT to Value and back: arguments as clients send them, results as clients expect them.
//
//     Value points;
//     const HRESULT taken = TakeValue(argument, Type::Integer, lcid, points);   // "12" is 12
//
// Coercion is that of the automation runtime: "12" and 12.3 are the Integer 12, 1.5 and 2.5 are 2
// (to even), True is -1, Empty is 0 and "". What has no meaning there is DISP_E_TYPEMISMATCH, a
// number out of range DISP_E_OVERFLOW. Throws std::bad_alloc.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include "automation/value.h"

namespace vellumark::automation::server {

/// A VARIANT that frees what it holds.
class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&variant_); }
  OwnedVariant(const OwnedVariant&) = delete;
  OwnedVariant& operator=(const OwnedVariant&) = delete;
  OwnedVariant(OwnedVariant&&) = delete;
  OwnedVariant& operator=(OwnedVariant&&) = delete;
  ~OwnedVariant() { VariantClear(&variant_); }

  VARIANT* operator->() noexcept { return &variant_; }
  VARIANT& operator*() noexcept { return variant_; }

  /// Hands the content over to the caller and is empty.
  [[nodiscard]] VARIANT Take() noexcept {
    const VARIANT taken = variant_;
    VariantInit(&variant_);
    return taken;
  }

 private:
  VARIANT variant_{};
};

/// The variant behind references to variants, which VBScript passes for each variable.
[[nodiscard]] VARIANT& Dereference(VARIANT& argument) noexcept;

/// Whether the argument is the error variant that clients send for one that was left out.
[[nodiscard]] bool IsOmitted(const VARIANT& argument) noexcept;

/// Whether a variant of this type holds a whole number, of any size and sign.
[[nodiscard]] bool IsInteger(VARTYPE type) noexcept;

/// Converts what `source` holds or refers to into a variant of type `type`.
[[nodiscard]] HRESULT Coerce(const VARIANT& source, VARTYPE type, LCID lcid, OwnedVariant& result);

/// Converts an argument into a Value of type `type`.
[[nodiscard]] HRESULT TakeValue(VARIANT& argument, Type type, LCID lcid, Value& value);

/// Whether the argument is an array of bytes, such as a stream object's Read returns, or a
/// reference to one.
[[nodiscard]] bool IsBytes(const VARIANT& argument) noexcept;

/// Copies such an array, which must have one dimension, into a Value. An array that was never
/// given a size is a type mismatch.
[[nodiscard]] HRESULT TakeBytes(const VARIANT& argument, Value& value);

/// Puts a Value into an empty variant; None leaves it empty.
void GiveValue(const Value& value, OwnedVariant& result);

}  // namespace vellumark::automation::server
