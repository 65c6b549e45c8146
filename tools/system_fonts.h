// SPDX-License-Identifier: MIT
//
// FontsThatShow: fonts of the system, found through fontconfig.
//
//     for (const std::string& file : FontsThatShow("б日")) ...    // "/usr/share/fonts/....ttc#0"
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vellumark::tools {

/// The fewest files that show as many of the characters as the system has fonts for, each with the
/// number of its face; at most 16.
[[nodiscard]] std::vector<std::string> FontsThatShow(std::string_view characters);

}  // namespace vellumark::tools
