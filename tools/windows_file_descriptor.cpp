// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "tools/file_descriptor.h"
#include "tools/file_name.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kMostAtOnce = std::size_t{1} << 20U;  // a count is 32 bits wide

unsigned Piece(std::size_t size) { return static_cast<unsigned>(std::min(size, kMostAtOnce)); }

}  // namespace

void ThrowSystemError() { throw std::system_error(errno, std::generic_category()); }

FileDescriptor FileDescriptor::OpenToRead(const std::string& name) { return Open(name, _O_RDONLY); }

FileDescriptor FileDescriptor::OpenToWrite(const std::string& name) {
  return Open(name, _O_WRONLY);
}

/// Who may read a file follows from its folder here.
FileDescriptor FileDescriptor::CreateNew(const std::string& name, bool /*owner_only*/) {
  return Open(name, _O_WRONLY | _O_CREAT | _O_EXCL, _S_IREAD | _S_IWRITE);
}

FileDescriptor FileDescriptor::Open(const std::string& name, int flags, int mode) {
  const int number = _wopen(PathOf(name).c_str(), flags | _O_BINARY | _O_NOINHERIT, mode);
  if (number < 0) ThrowSystemError();
  return FileDescriptor(number);
}

FileDescriptor::FileDescriptor(FileDescriptor&& other) noexcept
    : number_(std::exchange(other.number_, -1)) {}

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

FileDescriptor::~FileDescriptor() {
  if (number_ >= 0) _close(number_);
}

void FileDescriptor::Close() {
  if (_close(std::exchange(number_, -1)) != 0) ThrowSystemError();
}

std::string ReadUpTo(int descriptor, std::size_t most) {
  constexpr std::size_t kFirstBlock = 65536;
  std::string bytes;
  std::size_t used = 0;
  while (used <= most) {
    if (used == bytes.size()) bytes.resize(std::min(std::max(2 * used, kFirstBlock), most + 1));
    const int count = _read(descriptor, bytes.data() + used, Piece(bytes.size() - used));
    if (count < 0) ThrowSystemError();
    if (count == 0) break;
    used += static_cast<std::size_t>(count);
  }
  bytes.resize(used);
  bytes.shrink_to_fit();  // it is kept as long as the program runs
  return bytes;
}

void WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const int count = _write(descriptor, bytes.data(), Piece(bytes.size()));
    if (count == 0) errno = EIO;  // no progress and no reason
    if (count <= 0) ThrowSystemError();
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void Synchronize(int descriptor) {
  if (_commit(descriptor) != 0 && errno != EBADF && errno != EINVAL) ThrowSystemError();
}

void CheckWritable(const std::string& name) {
  constexpr int kWrite = 2;
  if (_waccess(PathOf(name).c_str(), kWrite) != 0) ThrowSystemError();
}

}  // namespace vellumark::tools
