// SPDX-License-Identifier: MIT
//
// Flush in comparison with the least that any program must do: copy the same lines into a buffer of
// 64 KiB and write it to the file whenever it is full.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bench/sample_text.h"

namespace vellumark::bench {

/// Builds a document whose file has some 30,000 lines; returns how long its Flush takes.
double SecondsToFlush(const SampleText& text, const std::string& path);

/// The lines of a file, each with its line end.
class FileLines {
 public:
  explicit FileLines(const std::string& path);

  [[nodiscard]] std::size_t Count() const { return lines_.size(); }

  /// Writes the lines to another file; returns how long that takes, without opening it.
  [[nodiscard]] double SecondsToWrite(const std::string& path) const;

 private:
  std::string bytes_;
  std::vector<std::string_view> lines_;
};

}  // namespace vellumark::bench
