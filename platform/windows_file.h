// SPDX-License-Identifier: MIT
//
// Files of Windows: one that is written and that nobody else can open meanwhile, and the bytes of
// one that is read.
//
// Names are UTF-8 and brought to the ANSI code page. A name that holds a NUL, which would name
// another file, or that is longer than any name can be is an error. A character that the code page
// lacks becomes "?", which no name may hold: the system then refuses it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/output_file.h"

namespace vellumark::platform {

class WindowsFile final : public OutputFile {
 public:
  WindowsFile() = default;

  /// Takes over a HANDLE that is open for writing.
  explicit WindowsFile(void* handle) : handle_(handle) {}
  WindowsFile(const WindowsFile&) = delete;
  WindowsFile& operator=(const WindowsFile&) = delete;
  WindowsFile(WindowsFile&&) = delete;
  WindowsFile& operator=(WindowsFile&&) = delete;
  ~WindowsFile() override { Close(); }

  /// Creates the file; an existing one loses its content. Fails, among other reasons, for a file
  /// that is open.
  std::error_code Create(std::string_view name);

 private:
  std::size_t WriteSome(std::string_view bytes, std::error_code& error) noexcept override;
  std::error_code CloseFile() noexcept override;

  void* handle_ = nullptr;
};

/// An OutputFiles::Open.
[[nodiscard]] std::unique_ptr<OutputFile> OpenWindowsFile(std::string_view name,
                                                          std::error_code& error);

/// Reads a regular file of at most 2^31 - 1 bytes. Returns false with a `reason` and no bytes if
/// that is not possible. Throws std::bad_alloc.
[[nodiscard]] bool ReadWindowsFile(std::string_view name, std::vector<std::uint8_t>& bytes,
                                   std::string& reason);

}  // namespace vellumark::platform
