// SPDX-License-Identifier: MIT
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "platform/picture_format.h"
#include "platform/system.h"

namespace vellumark::platform {
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

}  // namespace

std::string ReadRegularFile(std::string_view name, std::vector<std::uint8_t>& bytes) {
  if (name.find('\0') != std::string_view::npos) {
    return std::make_error_code(std::errc::no_such_file_or_directory).message();
  }
  // O_NONBLOCK: opening a named pipe does not wait for somebody to write to it.
  const Descriptor file(
      ::open(std::string(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) return LastErrorText();
  if (!S_ISREG(status.st_mode)) return kNotRegular;
  if (status.st_size > kGreatestFile) return kLargerThan2Gb;
  bytes.resize(static_cast<std::size_t>(status.st_size));
  return ReadAll(file.get(), bytes) ? std::string() : LastErrorText();
}

std::tm LocalCalendar(std::time_t moment) {
  std::tm calendar{};
  localtime_r(&moment, &calendar);
  return calendar;
}

std::tm UtcCalendar(std::time_t moment) {
  std::tm calendar{};
  gmtime_r(&moment, &calendar);
  return calendar;
}

}  // namespace vellumark::platform
