// SPDX-License-Identifier: MIT
#include "platform/windows_file.h"

#include <algorithm>
#include <windows.h>

#include "platform/picture_format.h"
#include "platform/windows_code_page.h"

namespace vellumark::platform {
namespace {

std::error_code SystemError(DWORD number) noexcept {
  return {static_cast<int>(number), std::system_category()};
}

/// The last error of the calling thread; memory shortage under the name that all platforms share.
std::error_code LastError() noexcept {
  const DWORD number = GetLastError();
  if (number == ERROR_NOT_ENOUGH_MEMORY || number == ERROR_OUTOFMEMORY) {
    return std::make_error_code(std::errc::not_enough_memory);
  }
  return SystemError(number);
}

/// Brings a file name into the form that CreateFileA takes.
std::error_code ToSystemFileName(std::string_view utf8, std::string& name) {
  constexpr std::size_t kLongest = 32767;  // in UTF-16 units, which have at most 3 bytes of UTF-8
  if (utf8.size() > 3 * kLongest) return SystemError(ERROR_FILENAME_EXCED_RANGE);
  if (utf8.find('\0') != std::string_view::npos) return SystemError(ERROR_INVALID_NAME);
  name = ToSystemText(utf8);
  return {};
}

struct CloseHandleAtEnd {
  void operator()(void* handle) const { CloseHandle(handle); }
};
using ReadableFile = std::unique_ptr<void, CloseHandleAtEnd>;

/// Null if the file cannot be opened.
ReadableFile OpenForReading(const std::string& name) {
  void* const handle = CreateFileA(name.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  return ReadableFile(handle != INVALID_HANDLE_VALUE ? handle : nullptr);
}

/// Reads until `bytes` is full or the file ends, and cuts `bytes` to what was read.
bool ReadAll(void* file, std::vector<std::uint8_t>& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    DWORD count = 0;
    const auto left = static_cast<DWORD>(bytes.size() - done);
    if (ReadFile(file, bytes.data() + done, left, &count, nullptr) == 0) return false;
    if (count == 0) break;
    done += count;
  }
  bytes.resize(done);
  return true;
}

/// Why the file is not read, or an empty text.
std::string ReadFrom(void* file, std::vector<std::uint8_t>& bytes) {
  if (file == nullptr) return LastError().message();
  if (GetFileType(file) != FILE_TYPE_DISK) return std::string(kNotRegular);
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file, &size) == 0) return LastError().message();
  if (size.QuadPart > kGreatestFile) return std::string(kLargerThan2Gb);
  bytes.resize(static_cast<std::size_t>(size.QuadPart));
  return ReadAll(file, bytes) ? std::string() : LastError().message();
}

}  // namespace

std::error_code WindowsFile::Create(std::string_view name) {
  std::string system_name;
  if (const std::error_code error = ToSystemFileName(name, system_name)) return error;
  SECURITY_ATTRIBUTES attributes{};
  attributes.nLength = sizeof attributes;
  void* const handle =
      CreateFileA(system_name.c_str(), GENERIC_WRITE, 0, &attributes, CREATE_ALWAYS, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return LastError();
  handle_ = handle;
  return {};
}

std::size_t WindowsFile::WriteSome(std::string_view bytes, std::error_code& error) noexcept {
  constexpr std::size_t kMost = std::size_t{1} << 30;  // a count is 32 bits wide
  DWORD written = 0;
  const auto count = static_cast<DWORD>(std::min(bytes.size(), kMost));
  if (WriteFile(handle_, bytes.data(), count, &written, nullptr) == 0) error = LastError();
  return written;
}

std::error_code WindowsFile::CloseFile() noexcept {
  return handle_ == nullptr || CloseHandle(handle_) != 0 ? std::error_code() : LastError();
}

std::unique_ptr<OutputFile> OpenWindowsFile(std::string_view name, std::error_code& error) {
  auto file = std::make_unique<WindowsFile>();
  error = file->Create(name);
  if (error) return nullptr;
  return file;
}

bool ReadWindowsFile(std::string_view name, std::vector<std::uint8_t>& bytes, std::string& reason) {
  bytes.clear();
  std::string system_name;
  if (const std::error_code error = ToSystemFileName(name, system_name)) {
    reason = error.message();
    return false;
  }
  reason = ReadFrom(OpenForReading(system_name).get(), bytes);
  if (!reason.empty()) bytes = {};
  return reason.empty();
}

}  // namespace vellumark::platform
