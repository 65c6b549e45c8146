// SPDX-License-Identifier: MIT
#include <ctime>
#include <memory>
#include <tuple>

#include <vellumark/vellumark.h>

#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

void CheckWidths(Facts& facts) {
  QuietPlatform platform;
  const auto width = [&platform](int number, unsigned char code) {
    const auto bytes = platform.WidthResource(number);
    return bytes.size() == 512 ? bytes[2U * code] | bytes[2U * code + 1] << 8 : -1;
  };
  facts.Check("Helvetica's A is 667 wide", width(101, 'A') == 667);
  facts.Check("Times-Roman's A is 722 wide", width(105, 'A') == 722);
  facts.Check("Times-BoldItalic's W is 889 wide", width(108, 'W') == 889);
  facts.Check("ZapfDingbats' ! is 974 wide", width(110, '!') == 974);
  facts.Check("there is no table 100, 111 or -1", platform.WidthResource(100).empty() &&
                                                      platform.WidthResource(111).empty() &&
                                                      platform.WidthResource(-1).empty());
}

void CheckClock(Facts& facts) {
  const auto as_time = [](std::time_t moment) {
    const std::tm* const calendar = std::localtime(&moment);
    return std::tuple(calendar->tm_year + 1900, calendar->tm_mon + 1, calendar->tm_mday,
                      calendar->tm_hour, calendar->tm_min, calendar->tm_sec, calendar->tm_wday);
  };
  const auto before = as_time(std::time(nullptr));
  const LocalTime now = QuietPlatform().Now();
  const auto after = as_time(std::time(nullptr));
  const auto found =
      std::tuple(now.year, now.month, now.day, now.hour, now.minute, now.second, now.weekday);
  facts.Check("the clock shows local time", found == before || found == after);
}

void CheckWholeFile(Facts& facts, const std::string& pictures) {
  const TemporaryFile file("document.pdf");
  const auto platform = std::make_shared<QuietPlatform>();
  PDF doc(platform);
  const bool created = doc.Create(file.Name());
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  const bool written = created &&
                       doc.WriteText(
                           "Stra\xC3\x9F"
                           "e",
                           true) &&
                       doc.DrawPicture(pictures + "/landscape_8.bmp");
  const std::string refusal = doc.LastRefusal().sentence;
  doc.Flush();
  const std::string bytes = file.Bytes();
  facts.Check("a document with text and a picture is written",
              written && bytes.starts_with("%PDF-1.2\r\n") &&
                  bytes.find("Stra\xDF"
                             "e") != std::string::npos &&
                  bytes.find("/Subtype /Image") != std::string::npos &&
                  bytes.find("%%EOF") != std::string::npos,
              refusal);
}

}  // namespace

void CheckDocuments(Facts& facts, const std::string& pictures) {
  CheckWidths(facts);
  CheckClock(facts);
  CheckWholeFile(facts, pictures);
}

}  // namespace vellumark::tests
