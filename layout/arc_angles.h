// SPDX-License-Identifier: MIT
//
// NormalizeAngles: the angles of an arc in the form that the arc's path is built from.
#pragma once

#include <initializer_list>
#include <utility>

#include <vellumark/run_time_error.h>

namespace vellumark::layout {

/// Degrees in single precision, both in and out. First the smaller angle becomes th1; then 360 is
/// taken from each as long as it is above 360 (360 itself stays, negative angles are not touched).
/// Because the exchange comes first, th1 may end above th2 again: 400 and 30 give 30 and 40, but
/// 300 and 400 give 300 and 40. An angle so large that taking 360 away no longer changes it (beyond
/// about 6e9, and infinity) raises run-time error 6.
constexpr void NormalizeAngles(float& th1, float& th2) {
  if (th1 > th2) std::swap(th1, th2);
  for (float* const angle : {&th1, &th2}) {
    while (*angle > 360.0F) {
      const float less = *angle - 360.0F;
      if (!(less < *angle)) throw RunTimeError(RunTimeError::Overflow);
      *angle = less;
    }
  }
}

}  // namespace vellumark::layout
