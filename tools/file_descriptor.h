// SPDX-License-Identifier: MIT
//
// FileDescriptor: an open file of the system.
//
//     const FileDescriptor file = FileDescriptor::Open("notes.md", O_RDONLY);
//     const std::string bytes = ReadUpTo(file.number(), 1000);
//
// Everything here throws std::system_error with the system's reason.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace vellumark::tools {

class FileDescriptor {
 public:
  /// Opens as open(2) does, but never takes the place of a standard stream that the program was
  /// started without: its messages would land in the file.
  [[nodiscard]] static FileDescriptor Open(const std::string& name, int flags, mode_t mode = 0);

  FileDescriptor(FileDescriptor&& other) noexcept;
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor();

  [[nodiscard]] int number() const noexcept { return number_; }

  /// Closes the file and checks that nothing was lost.
  void Close();

 private:
  explicit FileDescriptor(int number) noexcept : number_(number) {}

  int number_;  // -1 once closed
};

/// Reads to the end, or one byte more than `most`: what is longer then than `most` was cut off.
[[nodiscard]] std::string ReadUpTo(int descriptor, std::size_t most);

/// Writes all of `bytes`.
void WriteAll(int descriptor, std::string_view bytes);

/// Waits until the file is on the disk. Returns at once if the file system cannot do that.
void Synchronize(int descriptor);

/// Throws std::system_error with errno.
[[noreturn]] void ThrowSystemError();

}  // namespace vellumark::tools
