// SPDX-License-Identifier: MIT
//
// GuardedBytes: bytes that end where memory ends, so that reading one more is a crash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace vellumark::encoding::testing {

#if defined(__unix__) || defined(__APPLE__)

class GuardedBytes {
 public:
  explicit GuardedBytes(std::span<const std::uint8_t> bytes) : size_(bytes.size()) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    readable_ = (size_ + page - 1) / page * page;
    mapped_ = readable_ + page;
    start_ = static_cast<std::uint8_t*>(
        mmap(nullptr, mapped_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    mprotect(start_ + readable_, page, PROT_NONE);
    if (size_ != 0) std::memcpy(start_ + readable_ - size_, bytes.data(), size_);
  }
  ~GuardedBytes() { munmap(start_, mapped_); }
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  [[nodiscard]] std::span<const std::uint8_t> Get() const {
    return {start_ + readable_ - size_, size_};
  }

 private:
  std::size_t size_;
  std::size_t readable_ = 0;
  std::size_t mapped_ = 0;
  std::uint8_t* start_ = nullptr;
};

#else

class GuardedBytes {
 public:
  explicit GuardedBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes.begin(), bytes.end()) {}
  [[nodiscard]] std::span<const std::uint8_t> Get() const { return bytes_; }

 private:
  std::vector<std::uint8_t> bytes_;
};

#endif

}  // namespace vellumark::encoding::testing
