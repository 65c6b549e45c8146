// SPDX-License-Identifier: MIT
//
// The names under which the library introduces itself on every platform, UTF-8. The build reads
// them from here for the version information of a Windows module: each must stay on one line.
#pragma once

#include <string_view>

namespace vellumark {

inline constexpr std::string_view kTitle = "Vellumark";
inline constexpr std::string_view kLegalNotice = "Copyright © 2026 Vellumark";

}  // namespace vellumark
