// SPDX-License-Identifier: MIT
#include "tools/file_descriptor.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace vellumark::tools {

void ThrowSystemError() { throw std::system_error(errno, std::generic_category()); }

FileDescriptor FileDescriptor::OpenToRead(const std::string& name) {
  return Open(name, O_RDONLY | O_NOCTTY);
}

FileDescriptor FileDescriptor::OpenToWrite(const std::string& name) {
  return Open(name, O_WRONLY | O_NOCTTY);
}

FileDescriptor FileDescriptor::CreateNew(const std::string& name, bool owner_only) {
  return Open(name, O_WRONLY | O_CREAT | O_EXCL, owner_only ? 0600 : 0666);
}

FileDescriptor FileDescriptor::Open(const std::string& name, int flags, int mode) {
  int number = -1;
  do {
    number = ::open(name.c_str(), flags | O_CLOEXEC, mode);
  } while (number < 0 && errno == EINTR);
  if (number < 0) ThrowSystemError();
  FileDescriptor file(number);
  if (number > STDERR_FILENO) return file;
  const int apart = ::fcntl(number, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (apart < 0) ThrowSystemError();
  return FileDescriptor(apart);
}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : number_(std::exchange(other.number_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

FileDescriptor::~FileDescriptor() {
  if (number_ >= 0) ::close(number_);
}

void FileDescriptor::Close() {
  // After EINTR the descriptor is gone too; closing it again could close another file.
  const bool closed = ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
  if (!closed) ThrowSystemError();
}

std::string ReadUpTo(int descriptor, std::size_t most) {
  constexpr std::size_t kFirstBlock = 65536;
  std::string bytes;
  std::size_t used = 0;
  while (used <= most) {
    if (used == bytes.size()) bytes.resize(std::min(std::max(2 * used, kFirstBlock), most + 1));
    const ssize_t count = ::read(descriptor, bytes.data() + used, bytes.size() - used);
    if (count < 0 && errno != EINTR) ThrowSystemError();
    if (count == 0) break;
    if (count > 0) used += static_cast<std::size_t>(count);
  }
  bytes.resize(used);
  bytes.shrink_to_fit();  // it is kept as long as the program runs
  return bytes;
}

void WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
      continue;
    }
    if (count == 0) errno = EIO;  // no progress and no reason
    if (errno != EINTR) ThrowSystemError();
  }
}

void CheckWritable(const std::string& name) {
  if (::faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS) != 0) ThrowSystemError();
}

void Synchronize(int descriptor) {
  while (::fsync(descriptor) != 0) {
    if (errno == EINVAL || errno == EROFS || errno == ENOSYS || errno == ENOTSUP) return;
    if (errno != EINTR) ThrowSystemError();
  }
}

}  // namespace vellumark::tools
