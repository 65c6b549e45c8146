// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <vellumark/posix_platform.h>

namespace vellumark {
namespace {

std::error_code LastError() { return {errno, std::generic_category()}; }

/// Whether there is anything to take away. An empty file is left alone: some file systems write a
/// file that was truncated to the disk when it is closed, as they do one that replaces another.
bool HasBytes(int fd) {
  struct stat status {};
  return ::fstat(fd, &status) != 0 || status.st_size > 0;
}

/// Opens the file for writing, never in the place of a standard stream that the process has closed:
/// what others print would land in the file.
int OpenApart(const char* name) {
  // O_NONBLOCK: a named pipe without a reader answers at once instead of waiting for one.
  const int fd = ::open(name, O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
  if (fd < 0 || fd > STDERR_FILENO) return fd;
  const int apart = ::fcntl(fd, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  ::close(fd);
  return apart;
}

/// Opens, locks and empties the file, in this order: a file in use keeps its content.
int OpenLocked(const char* name, std::error_code& error) {
  const int fd = OpenApart(name);
  if (fd < 0) {
    error = LastError();
    return -1;
  }
  struct stat status {};
  const bool known = ::fstat(fd, &status) == 0;
  const bool regular = known && S_ISREG(status.st_mode);
  if (regular && ::flock(fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    error = std::make_error_code(std::errc::device_or_resource_busy);
  } else if (!known || (regular && HasBytes(fd) && ::ftruncate(fd, 0) != 0)) {
    error = LastError();
  }
  if (error) {
    ::close(fd);
    return -1;
  }
  ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
  return fd;
}

}  // namespace

/// Most lines have 8 to 32 bytes: two copies of a fixed size, which overlap, cost no call.
void CopyLine(char* to, std::string_view line) {
  const char* const from = line.data();
  const std::size_t size = line.size();
  if (size - 8 <= 8) {
    std::memcpy(to, from, 8);
    std::memcpy(to + size - 8, from + size - 8, 8);
  } else if (size - 16 <= 16) {
    std::memcpy(to, from, 16);
    std::memcpy(to + size - 16, from + size - 16, 16);
  } else {
    std::memcpy(to, from, size);
  }
}

/// A file being written, with the bytes that are held back.
class PosixPlatform::OutputFile {
 public:
  explicit OutputFile(int fd) : fd_(fd), buffer_(new char[kBufferSize]) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  OutputFile(OutputFile&&) = delete;
  OutputFile& operator=(OutputFile&&) = delete;
  ~OutputFile() { Close(); }

  std::error_code Write(std::string_view bytes) {
    if (bytes.size() > kBufferSize - used_) return WriteLarge(bytes);
    char* const to = buffer_.get() + used_;
    used_ += bytes.size();
    CopyLine(to, bytes);
    return error_;
  }

  std::error_code Close() {
    if (fd_ < 0) return error_;
    Drain();
    // After EINTR the descriptor is gone too; closing it again could close another's.
    if (::close(fd_) != 0 && errno != EINTR && !error_) error_ = LastError();
    fd_ = -1;
    return error_;
  }

 private:
  static constexpr std::size_t kBufferSize = 65536;

  /// More than the buffer has room for. Apart from Write, which is called for every line and should
  /// save no registers for this.
  [[gnu::noinline]] std::error_code WriteLarge(std::string_view bytes) {
    Drain();
    if (bytes.size() < kBufferSize) return Write(bytes);
    WriteThrough(bytes);
    return error_;
  }

  void Drain() {
    WriteThrough({buffer_.get(), used_});
    used_ = 0;
  }

  /// Short writes are continued and interrupted ones repeated; the first error stays.
  void WriteThrough(std::string_view bytes) {
    while (!bytes.empty() && !error_) {
      const ssize_t written = ::write(fd_, bytes.data(), bytes.size());
      if (written >= 0) {
        bytes.remove_prefix(static_cast<std::size_t>(written));
      } else if (errno != EINTR) {
        error_ = LastError();
      }
    }
  }

  int fd_;
  std::unique_ptr<char[]> buffer_;
  std::size_t used_ = 0;
  std::error_code error_;
};

PosixPlatform::PosixPlatform() = default;
PosixPlatform::~PosixPlatform() = default;

inline PosixPlatform::OutputFile* PosixPlatform::Find(FileHandle file) noexcept {
  const auto index = static_cast<std::size_t>(file);
  return index < files_.size() ? files_[index].get() : nullptr;
}

FileHandle PosixPlatform::CreateOutput(std::string_view name, std::error_code& error) {
  error.clear();
  if (name.empty() || name.find('\0') != std::string_view::npos) {
    error = std::make_error_code(std::errc::no_such_file_or_directory);
    return FileHandle::Invalid;
  }
  const int fd = OpenLocked(std::string(name).c_str(), error);
  if (fd < 0) return FileHandle::Invalid;
  files_.push_back(std::make_unique<OutputFile>(fd));
  return static_cast<FileHandle>(files_.size() - 1);
}

std::error_code PosixPlatform::WriteOutput(FileHandle file, std::string_view bytes) {
  OutputFile* const output = Find(file);
  return output != nullptr ? output->Write(bytes)
                           : std::make_error_code(std::errc::bad_file_descriptor);
}

std::error_code PosixPlatform::CloseOutput(FileHandle file) {
  OutputFile* const output = Find(file);
  if (output == nullptr) return std::make_error_code(std::errc::bad_file_descriptor);
  const std::error_code error = output->Close();
  files_[static_cast<std::size_t>(file)].reset();
  while (!files_.empty() && files_.back() == nullptr) files_.pop_back();
  return error;
}

void PosixPlatform::CloseAll() noexcept { files_.clear(); }

void PosixPlatform::ShowNotice(std::string_view text, std::string_view caption) {
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
