// SPDX-License-Identifier: MIT
//
// Runs a program of this build in a separate process and waits for it.
#pragma once

#include <string>
#include <vector>

namespace vellumark::bench {

/// Runs `program`, which is in the same folder as the running one, and returns what it wrote to its
/// standard output. If it does not end successfully, this ends the benchmark (fail.h).
std::string RunChild(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace vellumark::bench
