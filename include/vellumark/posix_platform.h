// SPDX-License-Identifier: MIT
//
// PosixPlatform: files, standard error and the clock of a POSIX system.
//
// Files: an existing file keeps its permissions, its inode and, until the new content is locked in,
// its bytes. "No sharing" is an advisory lock (flock) on the open file, so it also holds between
// two documents of one process; other programs are not kept out. A named pipe without a reader is
// refused rather than waited for. Lines are collected into writes of 64 KiB.
//
// Notice: one line on standard error, "Vellumark: Initialize()"; left out if writing it would
// block, if nobody can read it any more, or if VELLUMARK_NOTICE in the environment is "off".
//
// Clock: local time, or SOURCE_DATE_EPOCH in UTC.
//
// Not for use from several threads at once; each document without a platform makes its own.
#pragma once

#include <memory>

#include <vellumark/portable_platform.h>

namespace vellumark {

namespace platform {
class OutputFiles;
}

class VELLUMARK_API PosixPlatform : public PortablePlatform {
 public:
  PosixPlatform();
  ~PosixPlatform() override;
  PosixPlatform(const PosixPlatform&) = delete;
  PosixPlatform& operator=(const PosixPlatform&) = delete;
  PosixPlatform(PosixPlatform&&) = delete;
  PosixPlatform& operator=(PosixPlatform&&) = delete;

  FileHandle CreateOutput(std::string_view name, std::error_code& error) override;
  std::error_code WriteOutput(FileHandle file, std::string_view bytes) override;
  std::error_code CloseOutput(FileHandle file) override;
  void ShowNotice(std::string_view text, std::string_view caption) override;

  /// Closes every file that is still open, as the destructor does: others may then create it. The
  /// handles are gone.
  void CloseAll() noexcept;

 private:
  std::unique_ptr<platform::OutputFiles> files_;
};

}  // namespace vellumark
