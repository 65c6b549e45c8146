// SPDX-License-Identifier: MIT
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/picture_format.h"
#include "platform/system.h"

namespace vellumark::platform {

std::string ReadRegularFile(std::string_view name, std::vector<std::uint8_t>& bytes) {
  namespace fs = std::filesystem;
  const fs::path path(std::u8string(name.begin(), name.end()));
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (error) return error.message();
  if (!fs::is_regular_file(status)) return kNotRegular;
  const std::uintmax_t size = fs::file_size(path, error);
  if (error) return error.message();
  if (size > static_cast<std::uintmax_t>(kGreatestFile)) return kLargerThan2Gb;
  bytes.resize(static_cast<std::size_t>(size));
  std::ifstream file(path, std::ios::binary);
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return file ? std::string() : "the file cannot be read";
}

std::tm LocalCalendar(std::time_t moment) {
  std::tm calendar{};
  localtime_s(&calendar, &moment);
  return calendar;
}

std::tm UtcCalendar(std::time_t moment) {
  std::tm calendar{};
  gmtime_s(&calendar, &moment);
  return calendar;
}

}  // namespace vellumark::platform
