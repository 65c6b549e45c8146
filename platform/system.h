// SPDX-License-Identifier: MIT
//
// What the portable platform asks of the system: the bytes of a file, and the calendar.
//
//     std::vector<std::uint8_t> bytes;
//     const std::string why_not = ReadRegularFile("logo.png", bytes);
//
// In posix_system.cpp and, in a build for Windows, windows_system.cpp.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::platform {

/// Reads a file of the system (UTF-8); returns why it is not read, or an empty text. Only regular
/// files of at most kGreatestFile bytes are read: a named pipe or a device could keep a document
/// waiting for ever. Throws std::bad_alloc.
[[nodiscard]] std::string ReadRegularFile(std::string_view name, std::vector<std::uint8_t>& bytes);

/// A moment on the clock of this place, and in UTC.
[[nodiscard]] std::tm LocalCalendar(std::time_t moment);
[[nodiscard]] std::tm UtcCalendar(std::time_t moment);

}  // namespace vellumark::platform
