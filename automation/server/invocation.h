// SPDX-License-Identifier: MIT
//
// Invocation: one automation call of a document's member.
//
//     Invocation call(document, member, lcid);
//     const HRESULT result = call.Call(arguments, &answer, wrong);
//
// All or nothing: a call that is refused or raises has written to no variable of the client. What
// is refused with which result is told in argument_binding.h and variant_value.h. RunTimeError and
// std::bad_alloc reach the caller.
#pragma once

#include <array>
#include <windows.h>
#include <oaidl.h>

#include "automation/member.h"
#include "automation/server/answer_target.h"
#include "automation/server/argument_binding.h"

namespace vellumark::automation::server {

class Invocation {
 public:
  Invocation(Document& document, const Member& member, LCID lcid) noexcept
      : document_(document), member_(member), lcid_(lcid) {}

  /// Calls the method, or reads the property. `answer` may be null; `wrong` receives the place in
  /// the array of an argument that is to blame.
  [[nodiscard]] HRESULT Call(const DISPPARAMS& arguments, VARIANT* answer, UINT& wrong);

  /// Assigns the property, which must have a let.
  [[nodiscard]] HRESULT Let(const DISPPARAMS& arguments, UINT& wrong);

 private:
  HRESULT TakeArguments(const DISPPARAMS& arguments, UINT& wrong);
  HRESULT TakeArgument(std::size_t place, VARIANT& argument);
  HRESULT GiveAnswers(UINT& wrong);

  Document& document_;
  const Member& member_;
  LCID lcid_;
  ArgumentBinding binding_;
  std::array<Value, Member::kMostParameters> values_;
  std::array<AnswerTarget, Member::kMostParameters> targets_;
};

}  // namespace vellumark::automation::server
