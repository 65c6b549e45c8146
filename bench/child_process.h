// SPDX-License-Identifier: MIT
//
// Runs a program of this build in a process of its own and waits for it.
#pragma once

#include <string>
#include <vector>

namespace vellumark::bench {

/// Runs `program`, which lies beside the running one, and answers what it wrote to its standard
/// output. Anything but a successful end of it ends the benchmark (fail.h).
std::string RunChild(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace vellumark::bench
