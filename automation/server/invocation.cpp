// SPDX-License-Identifier: MIT
#include "automation/server/invocation.h"

#include "automation/server/variant_value.h"

namespace vellumark::automation::server {

HRESULT Invocation::Call(const DISPPARAMS& arguments, VARIANT* returned, UINT& wrong) {
  HRESULT result = binding_.Bind(member_, arguments, wrong);
  if (SUCCEEDED(result)) result = TakeArguments(arguments, wrong);
  if (FAILED(result)) return result;

  OwnedVariant given;
  GiveValue(member_.call(document_, {values_.data(), member_.parameter_count}), given);
  result = StoreOutArguments(wrong);
  if (SUCCEEDED(result) && returned != nullptr) *returned = given.Take();
  return result;
}

HRESULT Invocation::TakeArguments(const DISPPARAMS& arguments, UINT& wrong) {
  for (std::size_t place = 0; place < member_.parameter_count; ++place) {
    if (!binding_.IsGiven(place)) {
      values_[place] = DefaultOf(member_.parameters()[place]);
      continue;
    }
    const UINT index = binding_.IndexOf(place);
    const HRESULT taken = TakeArgument(place, arguments.rgvarg[index]);
    if (FAILED(taken)) {
      wrong = index;
      return taken;
    }
  }
  return S_OK;
}

HRESULT Invocation::TakeArgument(std::size_t place, VARIANT& argument) {
  const Parameter& parameter = member_.parameters()[place];
  if (parameter.bytes) {
    const VARIANT& given = Dereference(argument);
    if (IsBytes(given)) return TakeBytes(given, values_[place]);
  }
  if (!parameter.in_out) return TakeValue(argument, parameter.type.type, lcid_, values_[place]);
  values_[place] = ZeroOf(parameter.type.type);
  return out_arguments_[place].Find(argument);
}

HRESULT Invocation::StoreOutArguments(UINT& wrong) {
  for (std::size_t place = 0; place < member_.parameter_count; ++place) {
    const HRESULT prepared = out_arguments_[place].Prepare(values_[place], lcid_);
    if (FAILED(prepared)) {
      wrong = binding_.IndexOf(place);
      return prepared;
    }
  }
  for (OutArgument& out : out_arguments_) out.Store();
  return S_OK;
}

HRESULT Invocation::Let(const DISPPARAMS& arguments, UINT& wrong) {
  if (arguments.cArgs != 1) return DISP_E_BADPARAMCOUNT;
  wrong = 0;
  if (arguments.cNamedArgs != 1 || arguments.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
    return DISP_E_PARAMNOTFOUND;
  }
  VARIANT& argument = arguments.rgvarg[0];
  if (IsOmitted(Dereference(argument))) return DISP_E_PARAMNOTOPTIONAL;
  const HRESULT taken = TakeValue(argument, member_.result.type, lcid_, values_[0]);
  if (SUCCEEDED(taken)) member_.let(document_, {values_.data(), 1});
  return taken;
}

}  // namespace vellumark::automation::server
