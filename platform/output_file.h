// SPDX-License-Identifier: MIT
//
// The files that a platform writes: lines are collected into writes of 64 KiB, longer pieces are
// written as they lie, and the files that are open are known by their handles. What differs from
// one system to the next is a class that derives from OutputFile.
//
//     OutputFiles files;
//     const FileHandle file = files.Create(OpenPosixFile, "a.pdf", error);
//     files.Write(file, "%PDF-1.2\r\n");
//     error = files.Close(file);
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <system_error>
#include <vector>

#include <vellumark/platform.h>

namespace vellumark::platform {

/// A file being written, with the bytes that are held back. The first error stays: later calls
/// return it again. A class that derives from this one calls Close in its destructor.
class OutputFile {
 public:
  static constexpr std::size_t kBufferSize = 65536;

  /// What is as long as this is not collected.
  static constexpr std::size_t kLong = 16384;

  /// Throws std::bad_alloc; writing never does.
  OutputFile() : buffer_(new char[kBufferSize]) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  OutputFile(OutputFile&&) = delete;
  OutputFile& operator=(OutputFile&&) = delete;
  virtual ~OutputFile() = default;

  std::error_code Write(std::string_view line) noexcept {
    if (line.size() > kBufferSize - used_ || line.size() >= kLong) return WriteLarge(line);
    char* const to = buffer_.get() + used_;
    used_ += line.size();
    CopyLine(to, line);
    return error_;
  }

  /// Writes what is held back and closes the file, which is closed after an error too.
  std::error_code Close() noexcept;

 protected:
  /// Hands bytes, one at least, to the system and returns how many it took. `error` is cleared
  /// before.
  virtual std::size_t WriteSome(std::string_view bytes, std::error_code& error) noexcept = 0;

  virtual std::error_code CloseFile() noexcept = 0;

 private:
  /// Most lines have 8 to 32 bytes: two copies of a fixed size, which overlap, cost no call.
  static void CopyLine(char* to, std::string_view line) noexcept {
    const char* const from = line.data();
    const std::size_t size = line.size();
    if (size - 8 <= 8) {
      std::memcpy(to, from, 8);
      std::memcpy(to + size - 8, from + size - 8, 8);
    } else if (size - 16 <= 16) {
      std::memcpy(to, from, 16);
      std::memcpy(to + size - 16, from + size - 16, 16);
    } else {
      std::memcpy(to, from, size);
    }
  }

  /// Writes what is long, or more than the buffer has room for. Apart from Write, which is called
  /// for every line and should save no registers for this.
  std::error_code WriteLarge(std::string_view bytes) noexcept;

  void Drain() noexcept;
  void WriteThrough(std::string_view bytes) noexcept;

  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  bool open_ = true;
  std::error_code error_;
};

class OutputFiles {
 public:
  /// Opens a file of the system for writing; null with an error if that is not possible.
  using Open = std::unique_ptr<OutputFile> (*)(std::string_view name, std::error_code& error);

  /// Returns the handle of a file that `open` opened, or FileHandle::Invalid with an error;
  /// memory shortage is std::errc::not_enough_memory.
  FileHandle Create(Open open, std::string_view name, std::error_code& error) noexcept;

  std::error_code Write(FileHandle file, std::string_view line) noexcept {
    const auto index = static_cast<std::uint64_t>(file);
    OutputFile* const output =
        index < files_.size() ? files_[static_cast<std::size_t>(index)].get() : nullptr;
    return output != nullptr ? output->Write(line) : NotOpen();
  }

  /// The handle is gone after an error too.
  std::error_code Close(FileHandle file) noexcept;

  void CloseAll() noexcept { files_.clear(); }

 private:
  static std::error_code NotOpen() noexcept;
  void DropClosed() noexcept;

  std::vector<std::unique_ptr<OutputFile>> files_;  // indexed by handle; null once closed
};

}  // namespace vellumark::platform
