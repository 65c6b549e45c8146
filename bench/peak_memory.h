// SPDX-License-Identifier: MIT
//
// PeakMemoryInKiB: the most memory that this process has had in use.
//
// The kernel's high-water mark is read by the process itself and not by its parent: what a parent
// is told of an ended child (ru_maxrss) also counts the parent's own memory, from the moment before
// the child's program was loaded.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "bench/fail.h"

namespace vellumark::bench {

inline long PeakMemoryInKiB() {
  std::FILE* const status = std::fopen("/proc/self/status", "r");
  if (status == nullptr) Fail("/proc/self/status", "cannot be opened");
  long peak = 0;
  char line[256];
  while (peak == 0 && std::fgets(line, sizeof line, status) != nullptr) {
    constexpr std::string_view kKey = "VmHWM:";
    if (std::string_view(line).starts_with(kKey)) {
      peak = std::strtol(line + kKey.size(), nullptr, 10);
    }
  }
  (void)std::fclose(status);
  return peak;
}

}  // namespace vellumark::bench
