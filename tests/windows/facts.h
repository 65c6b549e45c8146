// SPDX-License-Identifier: MIT
//
// Facts: what a program of this folder checks, one line each on standard output.
//
//     facts.Check("a folder is not a picture", !reason.empty(), reason);
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <vellumark/windows_platform.h>

namespace vellumark::tests {

class Facts {
 public:
  /// `found` is shown with a fact that does not hold.
  void Check(const std::string& fact, bool holds, std::string_view found = {}) {
    if (holds) {
      std::printf("holds: %s\n", fact.c_str());
    } else {
      ++failed_;
      std::printf("FAILED %s: %.*s\n", fact.c_str(), static_cast<int>(found.size()), found.data());
    }
    std::fflush(stdout);
  }

  [[nodiscard]] bool AllHold() const noexcept { return failed_ == 0; }

 private:
  int failed_ = 0;
};

/// The platform without its message box, which nobody here would close.
class QuietPlatform : public WindowsPlatform {
 public:
  void ShowNotice(std::string_view /*text*/, std::string_view /*caption*/) override {}
};

/// A file of its own in the folder for temporary files, gone at the end of the block.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& name)
      : path_(std::filesystem::temp_directory_path() / ("vellumark_" + name)) {
    std::filesystem::remove(path_);
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile(TemporaryFile&&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  [[nodiscard]] std::string Name() const { return path_.string(); }

  void Put(std::string_view bytes) const {
    std::ofstream(path_, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  [[nodiscard]] std::string Bytes() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
};

void CheckOutput(Facts& facts);
void CheckCodePages(Facts& facts);
void CheckDocuments(Facts& facts, const std::string& pictures);
void CheckPictures(Facts& facts, const std::string& pictures);
void CheckBitmaps(Facts& facts);

}  // namespace vellumark::tests
