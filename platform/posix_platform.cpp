// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <strings.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vellumark/posix_platform.h>

#include "platform/output_file.h"

namespace vellumark {
namespace {

std::error_code LastError() noexcept { return {errno, std::generic_category()}; }

/// Opens the file for writing, never in the place of a standard stream that the process has closed:
/// what others print would land in the file.
int OpenApart(const char* name) {
  // O_NONBLOCK: opening a named pipe without a reader fails at once instead of waiting for one.
  const int fd = ::open(name, O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  if (fd < 0 || fd > STDERR_FILENO) return fd;
  const int apart = ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  const int reason = errno;
  ::close(fd);
  errno = reason;
  return apart;
}

/// Locks and empties a file that was opened, in this order: a file in use keeps its content. What
/// is not a file on a disk, such as a pipe, is written to as it is.
std::error_code LockAndEmpty(int fd) {
  struct stat status {};
  if (::fstat(fd, &status) != 0) return LastError();
  if (!S_ISREG(status.st_mode)) {
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    return {};
  }
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return std::make_error_code(std::errc::device_or_resource_busy);
  }
  // An empty file is left alone: some file systems write a file that was truncated to the disk when
  // it is closed, as they do one that replaces another. Its size is asked for once more, because
  // somebody else may have had the lock until now.
  const bool has_bytes = ::fstat(fd, &status) != 0 || status.st_size > 0;
  return has_bytes && ::ftruncate(fd, 0) != 0 ? LastError() : std::error_code();
}

class PosixFile final : public platform::OutputFile {
 public:
  PosixFile() = default;
  PosixFile(const PosixFile&) = delete;
  PosixFile& operator=(const PosixFile&) = delete;
  PosixFile(PosixFile&&) = delete;
  PosixFile& operator=(PosixFile&&) = delete;
  ~PosixFile() override { Close(); }

  std::error_code Open(const char* name) noexcept {
    fd_ = OpenApart(name);
    return fd_ < 0 ? LastError() : LockAndEmpty(fd_);
  }

 private:
  /// A write that was interrupted is repeated.
  std::size_t WriteSome(std::string_view bytes, std::error_code& error) noexcept override {
    ssize_t written = 0;
    do {
      written = ::write(fd_, bytes.data(), bytes.size());
    } while (written < 0 && errno == EINTR);
    if (written >= 0) return static_cast<std::size_t>(written);
    error = LastError();
    return 0;
  }

  /// After EINTR the descriptor is gone too; closing it again could close another's.
  std::error_code CloseFile() noexcept override {
    return fd_ < 0 || ::close(fd_) == 0 || errno == EINTR ? std::error_code() : LastError();
  }

  int fd_ = -1;
};

std::unique_ptr<platform::OutputFile> OpenFile(std::string_view name, std::error_code& error) {
  if (name.empty() || name.find('\0') != std::string_view::npos) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    return nullptr;
  }
  // Whatever needs memory comes first: a file that cannot be kept must not lose its content.
  const std::string system_name(name);
  auto file = std::make_unique<PosixFile>();
  error = file->Open(system_name.c_str());
  if (error) return nullptr;
  return file;
}

}  // namespace

PosixPlatform::PosixPlatform() : files_(std::make_unique<platform::OutputFiles>()) {}
PosixPlatform::~PosixPlatform() = default;

FileHandle PosixPlatform::CreateOutput(std::string_view name, std::error_code& error) {
  return files_->Create(OpenFile, name, error);
}

std::error_code PosixPlatform::WriteOutput(FileHandle file, std::string_view bytes) {
  return files_->Write(file, bytes);
}

std::error_code PosixPlatform::CloseOutput(FileHandle file) { return files_->Close(file); }

void PosixPlatform::CloseAll() noexcept { files_->CloseAll(); }

void PosixPlatform::ShowNotice(std::string_view text, std::string_view caption) {
  const char* const wish = std::getenv("VELLUMARK_NOTICE");  // NOLINT(concurrency-mt-unsafe)
  if (wish != nullptr && ::strcasecmp(wish, "off") == 0) return;
  std::string line;
  line.append(caption).append(": ").append(text).append("\n");
  pollfd standard_error{STDERR_FILENO, POLLOUT, 0};
  // A full pipe is not writable; one without a reader has an error pending and would raise a
  // signal.
  const bool writable = ::poll(&standard_error, 1, 0) == 1 && standard_error.revents == POLLOUT;
  if (writable && ::write(STDERR_FILENO, line.data(), line.size()) < 0) {
    // The notice is a courtesy: nobody waits for it.
  }
}

}  // namespace vellumark
