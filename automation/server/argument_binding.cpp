// SPDX-License-Identifier: MIT
#include "automation/server/argument_binding.h"

#include <algorithm>

#include "automation/server/variant_value.h"

namespace vellumark::automation::server {

bool IsSound(const DISPPARAMS& arguments) noexcept {
  return arguments.cNamedArgs <= arguments.cArgs &&
         (arguments.cArgs == 0 || arguments.rgvarg != nullptr) &&
         (arguments.cNamedArgs == 0 || arguments.rgdispidNamedArgs != nullptr);
}

HRESULT ArgumentBinding::Bind(const Member& member, const DISPPARAMS& arguments, UINT& wrong) {
  const auto parameters = member.parameters();
  const auto required =
      std::ranges::count_if(parameters, [](const Parameter& p) { return !p.optional(); });
  if (arguments.cArgs > parameters.size() || arguments.cArgs < static_cast<UINT>(required)) {
    return DISP_E_BADPARAMCOUNT;
  }
  index_of_.fill(kOmitted);
  const UINT positional = arguments.cArgs - arguments.cNamedArgs;
  for (UINT place = 0; place < positional; ++place) index_of_[place] = arguments.cArgs - 1 - place;
  const HRESULT named = BindNames(member, arguments, wrong);
  return FAILED(named) ? named : CheckOmitted(member, arguments, wrong);
}

HRESULT ArgumentBinding::BindNames(const Member& member, const DISPPARAMS& arguments, UINT& wrong) {
  for (UINT index = 0; index < arguments.cNamedArgs; ++index) {
    const DISPID name = arguments.rgdispidNamedArgs[index];
    if (name < 0 || static_cast<std::size_t>(name) >= member.parameter_count ||
        IsGiven(static_cast<std::size_t>(name))) {
      wrong = index;
      return DISP_E_PARAMNOTFOUND;
    }
    index_of_[static_cast<std::size_t>(name)] = index;
  }
  return S_OK;
}

HRESULT ArgumentBinding::CheckOmitted(const Member& member, const DISPPARAMS& arguments,
                                      UINT& wrong) {
  const auto parameters = member.parameters();
  for (std::size_t place = 0; place < parameters.size(); ++place) {
    const Parameter& parameter = parameters[place];
    if (IsGiven(place)) {
      VARIANT& argument = arguments.rgvarg[index_of_[place]];
      // What the variable of an in/out parameter holds does not matter, not even this.
      if (!IsOmitted(parameter.in_out ? argument : Dereference(argument))) continue;
      wrong = index_of_[place];
      index_of_[place] = kOmitted;
    }
    if (!parameter.optional()) return DISP_E_PARAMNOTOPTIONAL;
  }
  return S_OK;
}

}  // namespace vellumark::automation::server
