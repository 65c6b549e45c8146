// SPDX-License-Identifier: MIT
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

#include <vellumark/portable_platform.h>

#include "platform/library_identity.h"
#include "platform/picture_decoder.h"
#include "platform/picture_format.h"
#include "platform/width_resources.h"
#include "platform/windows_1252.h"

namespace vellumark {
namespace {

std::string LastErrorText() { return std::error_code(errno, std::generic_category()).message(); }

/// Closes a descriptor at the end of its block.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  [[nodiscard]] int get() const noexcept { return fd_; }

 private:
  int fd_;
};

/// Reads until `bytes` is full or the file ends, and cuts `bytes` to what was read; interrupted
/// reads are repeated.
bool ReadAll(int fd, std::vector<std::uint8_t>& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::read(fd, bytes.data() + done, bytes.size() - done);
    if (count == 0) break;
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      return false;
    }
  }
  bytes.resize(done);
  return true;
}

/// Reads a file of the system; returns why it is not read, or an empty text. Only regular files are
/// read: a named pipe or a device could keep a document waiting for ever.
std::string ReadRegularFile(std::string_view name, std::vector<std::uint8_t>& bytes) {
  if (name.find('\0') != std::string_view::npos) {
    return std::make_error_code(std::errc::no_such_file_or_directory).message();
  }
  // O_NONBLOCK: opening a named pipe does not wait for somebody to write to it.
  const Descriptor file(
      ::open(std::string(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) return LastErrorText();
  if (!S_ISREG(status.st_mode)) return platform::kNotRegular;
  if (status.st_size > platform::kGreatestFile) return platform::kLargerThan2Gb;
  bytes.resize(static_cast<std::size_t>(status.st_size));
  return ReadAll(file.get(), bytes) ? std::string() : LastErrorText();
}

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
  reason = ReadRegularFile(file, bytes);
  if (!reason.empty()) bytes.clear();
  return reason.empty();
}

bool PortablePlatform::DecodePictureBytes(std::span<const std::uint8_t> bytes, Bitmap& bitmap,
                                          std::string& reason) {
  reason = platform::DecodePicture(bytes, greatest_picture_, bitmap);
  return reason.empty();
}

LocalTime PortablePlatform::Now() {
  std::tm calendar{};
  if (const auto moment = SourceDateEpoch()) {
    gmtime_r(&*moment, &calendar);
  } else {
    const std::time_t now = std::time(nullptr);
    localtime_r(&now, &calendar);
  }
  return FromCalendar(calendar);
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
