// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <system_error>

namespace vellumark::platform {

/// The last error of the calling thread.
[[nodiscard]] std::error_code LastWindowsError() noexcept;

/// Brings the file name `utf8` into the form that CreateFileA takes. An error for a name that holds
/// a NUL, which would name another file, or that is longer than any name can be. A character that
/// the code page lacks becomes "?", which no name may hold: the system then refuses it.
[[nodiscard]] std::error_code ToSystemFileName(std::string_view utf8, std::string& name);

}  // namespace vellumark::platform
