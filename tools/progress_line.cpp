// SPDX-License-Identifier: MIT
#include "tools/progress_line.h"

#include <iostream>
#include <unistd.h>

#include "tools/file_descriptor.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kLongInput = 2000;  // lines
constexpr std::chrono::milliseconds kInterval{100};

}  // namespace

ProgressLine::ProgressLine(std::size_t lines)
    : lines_(lines),
      wanted_(lines >= kLongInput && ::isatty(kStandardError) != 0),
      next_(std::chrono::steady_clock::now()) {}

void ProgressLine::Show(int pages, std::size_t line) {
  if (!wanted_) return;
  const auto now = std::chrono::steady_clock::now();
  if (now < next_) return;
  next_ = now + kInterval;
  shown_ = true;
  std::cerr << "\rpage " << pages << ", line " << line << " of " << lines_ << std::flush;
}

void ProgressLine::Clear() {
  if (shown_) std::cerr << "\r\x1B[K" << std::flush;
  shown_ = false;
}

}  // namespace vellumark::tools
