// SPDX-License-Identifier: MIT
#include "platform/windows_output_file.h"

#include <algorithm>
#include <string>
#include <windows.h>

#include "platform/windows_file_name.h"

namespace vellumark::platform {

std::unique_ptr<WindowsOutputFile> WindowsOutputFile::Create(std::string_view name,
                                                             std::error_code& error) {
  std::string system_name;
  error = ToSystemFileName(name, system_name);
  if (error) return nullptr;
  // The object first: nothing may fail between the file's creation and its owner.
  auto file = std::make_unique<WindowsOutputFile>(nullptr);
  void* const handle = CreateFileA(system_name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                   FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    error = LastWindowsError();
    return nullptr;
  }
  file->handle_ = handle;
  return file;
}

std::error_code WindowsOutputFile::Write(std::string_view bytes) noexcept {
  constexpr std::size_t kMost = std::size_t{1} << 30;  // a count is 32 bits wide
  while (!bytes.empty() && !error_) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kMost));
    if (WriteFile(handle_, bytes.data(), count, &written, nullptr) == 0) {
      error_ = LastWindowsError();
    } else if (written == 0) {  // no progress: waiting for more would never end
      error_ = {ERROR_WRITE_FAULT, std::system_category()};
    }
    bytes.remove_prefix(written);
  }
  return error_;
}

std::error_code WindowsOutputFile::Close() noexcept {
  if (handle_ == nullptr) return error_;
  if (CloseHandle(handle_) == 0 && !error_) error_ = LastWindowsError();
  handle_ = nullptr;
  return error_;
}

}  // namespace vellumark::platform
