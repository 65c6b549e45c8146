// SPDX-License-Identifier: MIT
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <utility>
#include <vector>

#include <vellumark/portable_platform.h>

#include "platform/library_identity.h"
#include "platform/picture_decoder.h"
#include "platform/system.h"
#include "platform/width_resources.h"
#include "platform/windows_1252.h"

namespace vellumark {
namespace {

std::optional<std::time_t> SourceDateEpoch() {
  const char* const text = std::getenv("SOURCE_DATE_EPOCH");  // NOLINT(concurrency-mt-unsafe)
  if (text == nullptr) return std::nullopt;
  const std::string_view digits(text);
  constexpr long long kEndOfYear9999 = 253402300799;
  long long seconds = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), seconds);
  const bool whole = error == std::errc{} && stop == digits.data() + digits.size();
  if (!whole || seconds < 0 || seconds > kEndOfYear9999) return std::nullopt;
  return static_cast<std::time_t>(seconds);
}

LocalTime FromCalendar(const std::tm& calendar) {
  return {calendar.tm_year + 1900, calendar.tm_mon + 1, calendar.tm_mday, calendar.tm_hour,
          calendar.tm_min,         calendar.tm_sec,     calendar.tm_wday};
}

}  // namespace

bool PortablePlatform::DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) {
  bitmap = {};
  std::vector<std::uint8_t> bytes;
  if (!ReadPicture(file, bytes, reason)) return false;
  reason = platform::DecodePicture(std::move(bytes), greatest_picture_, bitmap);
  return reason.empty();
}

bool PortablePlatform::ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                                   std::string& reason) {
  bytes.clear();
  reason = platform::ReadRegularFile(file, bytes);
  if (!reason.empty()) bytes.clear();
  return reason.empty();
}

bool PortablePlatform::DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                                          std::string& reason) {
  reason = platform::DecodePicture(bytes, greatest_picture_, bitmap);
  return reason.empty();
}

LocalTime PortablePlatform::Now() {
  if (const auto moment = SourceDateEpoch()) return FromCalendar(platform::UtcCalendar(*moment));
  return FromCalendar(platform::LocalCalendar(std::time(nullptr)));
}

std::string_view PortablePlatform::ToCodePage(std::string_view utf8, std::string& storage) {
  return platform::ToWindows1252(utf8, storage);
}

std::span<const std::uint8_t> PortablePlatform::WidthResource(int number) {
  return platform::WidthResource(number);
}

std::string_view PortablePlatform::Title() { return kTitle; }

std::string_view PortablePlatform::LegalNotice() { return kLegalNotice; }

}  // namespace vellumark
