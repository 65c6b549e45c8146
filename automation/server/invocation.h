// SPDX-License-Identifier: MIT
//
// Invocation: one automation call of a document's member.
//
//     Invocation call(document, member, lcid);
//     const HRESULT result = call.Call(arguments, &returned, wrong);
//
// All or nothing: a call that is refused or raises has written to none of the client's variables.
// argument_binding.h and variant_value.h list what is refused with which result. Throws
// RunTimeError and std::bad_alloc.
#pragma once

#include <array>
#include <windows.h>
#include <oaidl.h>

#include "automation/member.h"
#include "automation/server/argument_binding.h"
#include "automation/server/out_argument.h"

namespace vellumark::automation::server {

class Invocation {
 public:
  Invocation(Document& document, const Member& member, LCID lcid) noexcept
      : document_(document), member_(member), lcid_(lcid) {}

  /// Calls the method, or reads the property. `returned` may be null; `wrong` receives the place in
  /// the array of an argument that is to blame.
  [[nodiscard]] HRESULT Call(const DISPPARAMS& arguments, VARIANT* returned, UINT& wrong);

  /// Assigns the property, which must have a let.
  [[nodiscard]] HRESULT Let(const DISPPARAMS& arguments, UINT& wrong);

 private:
  HRESULT TakeArguments(const DISPPARAMS& arguments, UINT& wrong);
  HRESULT TakeArgument(std::size_t place, VARIANT& argument);
  HRESULT StoreOutArguments(UINT& wrong);

  Document& document_;
  const Member& member_;
  LCID lcid_;
  ArgumentBinding binding_;
  std::array<Value, Member::kMostParameters> values_;
  std::array<OutArgument, Member::kMostParameters> out_arguments_;
};

}  // namespace vellumark::automation::server
