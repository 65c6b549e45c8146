// SPDX-License-Identifier: MIT
//
// ProgressLine: a line on the terminal that shows how much of a long input is done.
//
// The line is overwritten in place, at most every 100 milliseconds, and cleared at the end. Nothing
// is written for a short input, or if standard error is not a terminal.
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
