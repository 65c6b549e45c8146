// SPDX-License-Identifier: MIT
//
// A header of the stranger's own; the library must not take it for one of its own.
#pragma once

namespace stranger {
inline constexpr int kFont = 1;
}  // namespace stranger
