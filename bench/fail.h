// SPDX-License-Identifier: MIT
//
// Fail: a benchmark whose documents are not what they should be measures nothing; it ends.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace vellumark::bench {

/// On standard output, because the benchmarks close standard error to the documents' notices.
[[noreturn]] inline void Fail(const char* who, const char* why) {
  std::printf("%s: %s\n", who, why);
  std::exit(EXIT_FAILURE);
}

}  // namespace vellumark::bench
