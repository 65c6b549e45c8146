// SPDX-License-Identifier: MIT
#include "tests/failing_system_calls.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vellumark::tests {
namespace {

thread_local FailingSystemCalls* failing = nullptr;

const FailingSystemCalls::Fault* Next(SystemCall call) noexcept {
  return failing != nullptr ? failing->Next(call) : nullptr;
}

/// Makes the call of this number, or fails.
template <class... Arguments>
long Make(SystemCall call, long number, Arguments... arguments) noexcept {
  const auto* const fault = Next(call);
  if (fault == nullptr) return ::syscall(number, arguments...);
  if (call == SystemCall::Close && fault->done_nevertheless) ::syscall(number, arguments...);
  errno = fault->error;
  return -1;
}

/// The same for a call that moves `size` bytes.
template <class Bytes>
ssize_t Move(SystemCall call, long number, int file, Bytes bytes, std::size_t size) noexcept {
  const auto* const fault = Next(call);
  if (fault != nullptr && fault->error != 0) {
    errno = fault->error;
    return -1;
  }
  if (fault != nullptr) size = std::min(size, fault->at_most);
  return size == 0 ? 0 : ::syscall(number, file, bytes, size);
}

bool Meets(const FailingSystemCalls::Fault& fault, SystemCall call, int count) noexcept {
  return fault.call == call && count >= fault.first && count - fault.first < fault.times;
}

}  // namespace

FailingSystemCalls::FailingSystemCalls(const Fault& fault) noexcept : first_(fault) {
  failing = this;
}

FailingSystemCalls::~FailingSystemCalls() { failing = nullptr; }

const FailingSystemCalls::Fault* FailingSystemCalls::Next(SystemCall call) noexcept {
  const int count = ++counts_[static_cast<std::size_t>(call)];
  if (Meets(first_, call, count)) return &first_;
  return Meets(second_, call, count) ? &second_ : nullptr;
}

}  // namespace vellumark::tests

using vellumark::tests::Make;
using vellumark::tests::Move;
using vellumark::tests::SystemCall;

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's headers have none
extern "C" int open(const char* name, int flags, ...) {  // NOLINT(cert-dcl50-cpp): as it is
  std::va_list rest;
  va_start(rest, flags);
  const auto mode = va_arg(rest, mode_t);
  va_end(rest);
  return static_cast<int>(Make(SystemCall::Open, SYS_openat, AT_FDCWD, name, flags, mode));
}

extern "C" int fstat(int file, struct stat* status) noexcept {
  if (const auto* const fault = vellumark::tests::Next(SystemCall::Stat)) {
    errno = fault->error;
    return -1;
  }
  return ::fstatat(file, "", status, AT_EMPTY_PATH);
}

extern "C" int flock(int file, int operation) noexcept {
  return static_cast<int>(Make(SystemCall::Lock, SYS_flock, file, operation));
}

extern "C" int ftruncate(int file, off_t size) noexcept {
  return static_cast<int>(Make(SystemCall::Truncate, SYS_ftruncate, file, size));
}

extern "C" int fcntl(int file, int command, ...) {  // NOLINT(cert-dcl50-cpp): as it is
  std::va_list rest;
  va_start(rest, command);
  const long argument = va_arg(rest, long);
  va_end(rest);
  if (command != F_DUPFD_CLOEXEC) {
    return static_cast<int>(::syscall(SYS_fcntl, file, command, argument));
  }
  return static_cast<int>(Make(SystemCall::Duplicate, SYS_fcntl, file, command, argument));
}

extern "C" ssize_t read(int file, void* bytes, std::size_t size) {
  return Move(SystemCall::Read, SYS_read, file, bytes, size);
}

extern "C" ssize_t write(int file, const void* bytes, std::size_t size) {
  return Move(SystemCall::Write, SYS_write, file, bytes, size);
}

extern "C" int close(int file) {
  return static_cast<int>(Make(SystemCall::Close, SYS_close, file));
}

// Not a call of the kernel, but the platform's all the same: a library that is missing.
extern "C" void* dlopen(const char* name, int mode) {
  if (vellumark::tests::Next(SystemCall::LoadLibrary) != nullptr) return nullptr;
  using Open = void* (*)(const char*, int);
  return reinterpret_cast<Open>(::dlsym(RTLD_NEXT, "dlopen"))(name, mode);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
