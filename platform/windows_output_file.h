// SPDX-License-Identifier: MIT
//
// WindowsOutputFile: a file being written, which nobody else can open meanwhile.
//
//     std::error_code error;
//     if (auto file = WindowsOutputFile::Create("a.pdf", error)) file->Write("%PDF-1.2\r\n");
//
// Every Write goes to the system at once. The first error stays: later calls answer it again.
#pragma once

#include <memory>
#include <string_view>
#include <system_error>

namespace vellumark::platform {

class WindowsOutputFile {
 public:
  /// Creates the file `name` (UTF-8); an existing one loses its content. Null with an `error` where
  /// that is not possible, for one that is open among other reasons.
  [[nodiscard]] static std::unique_ptr<WindowsOutputFile> Create(std::string_view name,
                                                                 std::error_code& error);

  explicit WindowsOutputFile(void* handle) noexcept : handle_(handle) {}
  WindowsOutputFile(const WindowsOutputFile&) = delete;
  WindowsOutputFile& operator=(const WindowsOutputFile&) = delete;
  WindowsOutputFile(WindowsOutputFile&&) = delete;
  WindowsOutputFile& operator=(WindowsOutputFile&&) = delete;
  ~WindowsOutputFile() { Close(); }

  std::error_code Write(std::string_view bytes) noexcept;

  /// The file is closed also after an error.
  std::error_code Close() noexcept;

 private:
  void* handle_;  // a HANDLE; null once closed
  std::error_code error_;
};

}  // namespace vellumark::platform
