// SPDX-License-Identifier: MIT
//
// AnswerTarget: the client's variable that receives the answer of one in/out parameter.
//
//     AnswerTarget target;
//     HRESULT result = target.Find(argument);       // before the call
//     result = target.Prepare(answer, lcid);        // after it; may still fail
//     target.Store();                               // once all of them are prepared
//
// A variant receives the answer in its own type, whatever it held before. A typed reference (any
// number, Boolean or text) receives it converted, and one that cannot hold it is a type mismatch.
// An argument by value receives nothing, for clients that know no references.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include "automation/server/variant_value.h"
#include "automation/value.h"

namespace vellumark::automation::server {

class AnswerTarget {
 public:
  [[nodiscard]] HRESULT Find(VARIANT& argument) noexcept;

  /// Throws std::bad_alloc.
  [[nodiscard]] HRESULT Prepare(const Value& answer, LCID lcid);

  void Store() noexcept;

 private:
  VARIANT* variant_ = nullptr;    // receives the answer in its own type; or
  VARIANT* reference_ = nullptr;  // refers to a typed variable that receives it
  OwnedVariant answer_;
};

}  // namespace vellumark::automation::server
