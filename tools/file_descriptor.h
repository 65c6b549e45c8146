// SPDX-License-Identifier: MIT
//
// FileDescriptor: an open file of the system.
//
//     const FileDescriptor file = FileDescriptor::OpenToRead("notes.md");
//     const std::string bytes = ReadUpTo(file.number(), 1000);
//
// Everything here throws std::system_error with the system's reason. Windows has a source of its
// own, windows_file_descriptor.cpp.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vellumark::tools {

class FileDescriptor {
 public:
  /// Never takes the place of a standard stream that the program was started without: its messages
  /// would land in the file.
  [[nodiscard]] static FileDescriptor OpenToRead(const std::string& name);

  /// What is there stays, as for a device.
  [[nodiscard]] static FileDescriptor OpenToWrite(const std::string& name);

  /// A file that was not there before, not even as a link; `owner_only`: nobody else may read it.
  [[nodiscard]] static FileDescriptor CreateNew(const std::string& name, bool owner_only);

  FileDescriptor(FileDescriptor&& other) noexcept;
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  ~FileDescriptor();

  [[nodiscard]] int number() const noexcept { return number_; }

  /// Closes the file and checks that nothing was lost.
  void Close();

 private:
  [[nodiscard]] static FileDescriptor Open(const std::string& name, int flags, int mode = 0);
  explicit FileDescriptor(int number) noexcept : number_(number) {}

  int number_;  // -1 once closed
};

inline constexpr int kStandardInput = 0;
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardError = 2;

/// Reads to the end, or one byte more than `most`: what is longer then than `most` was cut off.
[[nodiscard]] std::string ReadUpTo(int descriptor, std::size_t most);

/// Writes all of `bytes`.
void WriteAll(int descriptor, std::string_view bytes);

/// Waits until the file is on the disk. Returns at once if the file system cannot do that.
void Synchronize(int descriptor);

/// Checks that the user may write to a file.
void CheckWritable(const std::string& name);

/// Throws std::system_error with errno.
[[noreturn]] void ThrowSystemError();

}  // namespace vellumark::tools
