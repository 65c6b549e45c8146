// SPDX-License-Identifier: MIT
//
// BeginProgram: what comes before everything else, and differs from system to system.
//
//     const std::vector<std::string> arguments = BeginProgram(argc, argv);
//
// The arguments are UTF-8 as far as the system has them so. An output beyond the limit on file
// sizes becomes an error of write, with its reason. On Windows (windows_program_begin.cpp) standard
// input and output carry bytes as they are, and the console shows UTF-8.
#pragma once

#include <string>
#include <vector>

namespace vellumark::tools {

[[nodiscard]] std::vector<std::string> BeginProgram(int argc, char** argv);

}  // namespace vellumark::tools
