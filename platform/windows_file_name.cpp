// SPDX-License-Identifier: MIT
#include "platform/windows_file_name.h"

#include <windows.h>

#include "platform/windows_code_page.h"

namespace vellumark::platform {

std::error_code LastWindowsError() noexcept {
  return {static_cast<int>(GetLastError()), std::system_category()};
}

std::error_code ToSystemFileName(std::string_view utf8, std::string& name) {
  constexpr std::size_t kLongest = 32767;  // in UTF-16 units, which have at most 3 bytes of UTF-8
  if (utf8.size() > 3 * kLongest) return {ERROR_FILENAME_EXCED_RANGE, std::system_category()};
  if (utf8.find('\0') != std::string_view::npos) {
    return {ERROR_INVALID_NAME, std::system_category()};
  }
  name = ToSystemText(utf8);
  return {};
}

}  // namespace vellumark::platform
