// SPDX-License-Identifier: MIT
#include <limits>
#include <system_error>
#include <windows.h>

#include "platform/picture_file.h"
#include "platform/windows_file_name.h"

namespace vellumark::platform {
namespace {

struct CloseFile {
  void operator()(void* handle) const { CloseHandle(handle); }
};
using File = std::unique_ptr<void, CloseFile>;

/// Null where the file cannot be opened.
File Open(const std::string& name) {
  void* const handle = CreateFileA(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  return File(handle != INVALID_HANDLE_VALUE ? handle : nullptr);
}

/// Reads up to `size` bytes or the end of the file.
bool ReadAll(void* file, std::uint8_t* to, std::size_t& size) {
  std::size_t done = 0;
  while (done < size) {
    DWORD count = 0;
    if (ReadFile(file, to + done, static_cast<DWORD>(size - done), &count, nullptr) == 0) {
      return false;
    }
    if (count == 0) break;
    done += count;
  }
  size = done;
  return true;
}

}  // namespace

bool PictureFile::Read(std::string_view name, std::string& reason) {
  std::string system_name;
  if (const std::error_code error = ToSystemFileName(name, system_name)) {
    reason = error.message();
    return false;
  }
  const File file = Open(system_name);
  LARGE_INTEGER size{};
  if (file == nullptr) {
    reason = LastWindowsError().message();
    return false;
  }
  if (GetFileType(file.get()) != FILE_TYPE_DISK) {
    reason = kNotRegular;
    return false;
  }
  if (GetFileSizeEx(file.get(), &size) == 0) {
    reason = LastWindowsError().message();
    return false;
  }
  if (size.QuadPart > std::numeric_limits<std::int32_t>::max()) {
    reason = kLargerThan2Gb;
    return false;
  }
  size_ = static_cast<std::size_t>(size.QuadPart);
  bytes_.reset(new std::uint8_t[size_]);
  if (ReadAll(file.get(), bytes_.get(), size_)) return true;
  reason = LastWindowsError().message();
  return false;
}

}  // namespace vellumark::platform
