// SPDX-License-Identifier: MIT
//
// ScratchDirectory: a directory for the documents of this process, removed by the destructor.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>
#include <unistd.h>

namespace vellumark::bench {

class ScratchDirectory {
 public:
  explicit ScratchDirectory(const std::filesystem::path& parent)
      : directory_(parent / std::string("vellumark-bench-").append(std::to_string(::getpid()))) {
    std::filesystem::create_directories(directory_);
  }
  ScratchDirectory(const ScratchDirectory&) = delete;
  ScratchDirectory& operator=(const ScratchDirectory&) = delete;
  ScratchDirectory(ScratchDirectory&&) = delete;
  ScratchDirectory& operator=(ScratchDirectory&&) = delete;
  ~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
  }

  [[nodiscard]] std::string File(const std::string& name) const { return directory_ / name; }

 private:
  std::filesystem::path directory_;
};

}  // namespace vellumark::bench
