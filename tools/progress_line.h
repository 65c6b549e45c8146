// SPDX-License-Identifier: MIT
//
// ProgressLine: how far the work has come, on a terminal only.
//
// The line is overwritten in place and cleared at the end. It shows for long inputs, and at most
// every 100 milliseconds; where standard error is no terminal, nothing is written at all.
#pragma once

#include <chrono>
#include <cstddef>

namespace vellumark::tools {

class ProgressLine {
 public:
  explicit ProgressLine(std::size_t lines);
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ProgressLine(ProgressLine&&) = delete;
  ProgressLine& operator=(ProgressLine&&) = delete;
  ~ProgressLine() { Clear(); }

  void Show(int pages, std::size_t line);
  void Clear();

 private:
  std::size_t lines_;
  bool wanted_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point next_;
};

}  // namespace vellumark::tools
