// SPDX-License-Identifier: MIT
//
// Fail: ends a benchmark whose documents are not what they should be.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace vellumark::bench {

/// Prints to standard output, because the benchmarks redirect standard error.
[[noreturn]] inline void Fail(const char* who, const char* why) {
  std::printf("%s: %s\n", who, why);
  std::exit(EXIT_FAILURE);
}

}  // namespace vellumark::bench
