// SPDX-License-Identifier: MIT
#include "platform/system_clock.h"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string_view>

namespace vellumark::platform {
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

LocalTime SystemLocalTime() {
  std::tm calendar{};
  if (const auto moment = SourceDateEpoch()) {
    gmtime_r(&*moment, &calendar);
  } else {
    const std::time_t now = std::time(nullptr);
    localtime_r(&now, &calendar);
  }
  return FromCalendar(calendar);
}

}  // namespace vellumark::platform
