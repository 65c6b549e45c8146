// SPDX-License-Identifier: MIT
#include "platform/picture_file.h"

#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace vellumark::platform {
namespace {

std::string LastError() { return std::error_code(errno, std::generic_category()).message(); }

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

/// Reads until `size` bytes or the end of the file; interrupted reads are repeated.
bool ReadAll(int fd, std::uint8_t* to, std::size_t& size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t count = ::read(fd, to + done, size - done);
    if (count == 0) break;
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      return false;
    }
  }
  size = done;
  return true;
}

}  // namespace

bool PictureFile::Read(std::string_view name, std::string& reason) {
  if (name.find('\0') != std::string_view::npos) {
    reason = std::make_error_code(std::errc::no_such_file_or_directory).message();
    return false;
  }
  // O_NONBLOCK: opening a named pipe does not wait for somebody to write to it.
  const Descriptor file(
      ::open(std::string(name).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat status {};
  if (file.get() < 0 || ::fstat(file.get(), &status) != 0) {
    reason = LastError();
    return false;
  }
  if (!S_ISREG(status.st_mode)) {
    reason = kNotRegular;
    return false;
  }
  if (status.st_size > std::numeric_limits<std::int32_t>::max()) {
    reason = kLargerThan2Gb;
    return false;
  }
  size_ = static_cast<std::size_t>(status.st_size);
  bytes_.reset(new std::uint8_t[size_]);
  if (ReadAll(file.get(), bytes_.get(), size_)) return true;
  reason = LastError();
  return false;
}

}  // namespace vellumark::platform
