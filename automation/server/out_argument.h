// SPDX-License-Identifier: MIT
//
// OutArgument: the client's variable that receives the value of one in/out parameter.
//
//     OutArgument target;
//     HRESULT result = target.Find(argument);       // before the call
//     result = target.Prepare(value, lcid);         // after it; may still fail
//     target.Store();                               // once all of them are prepared
//
// A variant receives the value in the parameter's type, whatever it held before. A typed reference
// (any number, Boolean or text) receives it converted; if it cannot hold it, that is a type
// mismatch. An argument by value receives nothing, for clients that do not know references.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include "automation/server/variant_value.h"
#include "automation/value.h"

namespace vellumark::automation::server {

class OutArgument {
 public:
  [[nodiscard]] HRESULT Find(VARIANT& argument) noexcept;

  /// Throws std::bad_alloc.
  [[nodiscard]] HRESULT Prepare(const Value& value, LCID lcid);

  void Store() noexcept;

 private:
  VARIANT* variant_ = nullptr;    // receives the value in the parameter's type; or
  VARIANT* reference_ = nullptr;  // refers to a typed variable that receives it
  OwnedVariant prepared_;
};

}  // namespace vellumark::automation::server
