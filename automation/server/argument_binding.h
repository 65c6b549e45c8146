// SPDX-License-Identifier: MIT
//
// ArgumentBinding: which argument of an automation call belongs to which parameter of a member.
//
//     doc.SetPosition(y:=50)      SetPosition , 50      doc.WriteText "a", dy:=2
//
// A client passes its arguments in one array, backwards: first the named ones, in any order, with
// the place of their parameter, then the positional ones from last to first. An optional parameter
// may be left out at the end, or anywhere by an error variant (IsOmitted in variant_value.h).
//
//     refused with                 when
//     DISP_E_BADPARAMCOUNT         too many arguments, or fewer than required parameters
//     DISP_E_PARAMNOTFOUND         a name without a parameter, or a parameter given twice
//     DISP_E_PARAMNOTOPTIONAL      a required parameter is left out
//     E_INVALIDARG                 the arrays do not agree with their counts (IsSound)
#pragma once

#include <array>
#include <windows.h>
#include <oaidl.h>

#include "automation/member.h"

namespace vellumark::automation::server {

class ArgumentBinding {
 public:
  /// `wrong` receives the place in the array of an argument that is to blame.
  [[nodiscard]] HRESULT Bind(const Member& member, const DISPPARAMS& arguments, UINT& wrong);

  /// Whether the parameter at `place` has an argument.
  [[nodiscard]] bool IsGiven(std::size_t place) const noexcept {
    return index_of_[place] != kOmitted;
  }

  /// The place of its argument in the client's array.
  [[nodiscard]] UINT IndexOf(std::size_t place) const noexcept { return index_of_[place]; }

 private:
  static constexpr UINT kOmitted = ~UINT{0};

  HRESULT BindNames(const Member& member, const DISPPARAMS& arguments, UINT& wrong);
  HRESULT CheckOmitted(const Member& member, const DISPPARAMS& arguments, UINT& wrong);

  std::array<UINT, Member::kMostParameters> index_of_{};
};

/// Whether the counts of `arguments` and its arrays agree.
[[nodiscard]] bool IsSound(const DISPPARAMS& arguments) noexcept;

}  // namespace vellumark::automation::server
