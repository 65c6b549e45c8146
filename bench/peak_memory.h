// SPDX-License-Identifier: MIT
//
// PeakMemoryInKiB: the most memory that this process has had in use.
//
// The process itself reads the kernel's high-water mark. Its parent cannot: the ru_maxrss of an
// ended child includes the memory of the parent, from the moment before the child's program was
// loaded.
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
