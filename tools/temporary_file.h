// SPDX-License-Identifier: MIT
//
// TemporaryFile: a file under another name that takes the place of its target when it is complete.
//
//     TemporaryFile file("notes.pdf");    // ".vellumark-k3v0....part" in the same directory
//     file.Write(bytes);
//     file.ReplaceTarget();
//
// A target that exists passes on its permissions, owner and group as far as the user and the file
// system may set them. Until ReplaceTarget has succeeded the target is not touched. A file that
// does not become the target is removed: by the destructor, and if SIGINT, SIGTERM, SIGHUP, SIGQUIT
// or SIGXCPU ends the program. Only one may exist at a time. Everything throws std::system_error
// with the system's reason. Windows has a source of its own, windows_temporary_file.cpp.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <sys/stat.h>

#include "tools/file_descriptor.h"

namespace vellumark::tools {

class TemporaryFile {
 public:
  /// `target` is the name of a regular file or of nothing; its directory must exist.
  explicit TemporaryFile(std::filesystem::path target);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile(TemporaryFile&&) = delete;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile();

  void Write(std::string_view bytes) { WriteAll(file_->number(), bytes); }

  /// Brings the file to the disk, then gives it the target's name.
  void ReplaceTarget();

 private:
  void Create();
  void TakeOwnerAndMode(const struct stat& owner);

  std::filesystem::path target_;
  std::filesystem::path path_;
  std::optional<struct stat> replaced_;  // the target as it was, if it was there
  std::optional<FileDescriptor> file_;
  bool exists_ = false;  // under its temporary name
};

}  // namespace vellumark::tools
