// SPDX-License-Identifier: MIT
//
// Changes: what a page has in force, so that only what is not yet is written.
//
//     if (Changes(in_force.thickness, state.thickness)) lines.Append(state.thickness, " w");
#pragma once

namespace vellumark::document {

/// Whether `wanted` is not in force yet; from now on it is.
template <class Value>
bool Changes(Value& in_force, const Value& wanted) {
  if (in_force == wanted) return false;
  in_force = wanted;
  return true;
}

}  // namespace vellumark::document
