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
#include <oaidl.h>

#include "automation/server/owned_variant.h"
#include "automation/value.h"

namespace vellumark::automation {

/// The variant behind references to variants, which VBScript passes for each variable.
[[nodiscard]] VARIANT& Dereference(VARIANT& argument) noexcept;

/// Whether the argument stands for one that the client left out.
[[nodiscard]] bool IsOmitted(const VARIANT& argument) noexcept;

/// Whether a variant of this type holds a whole number, of any size and sign.
[[nodiscard]] bool IsInteger(VARTYPE type) noexcept;

/// Converts what `source` holds or refers to into a variant of type `type`.
[[nodiscard]] HRESULT Coerce(const VARIANT& source, VARTYPE type, LCID lcid, OwnedVariant& result);

/// Converts an argument into a Value of type `type`.
[[nodiscard]] HRESULT TakeValue(VARIANT& argument, Type type, LCID lcid, Value& value);

/// Puts a Value into an empty variant; None leaves it empty.
void GiveValue(const Value& value, OwnedVariant& result);

}  // namespace vellumark::automation
