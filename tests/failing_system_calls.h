// SPDX-License-Identifier: MIT
//
// FailingSystemCalls: a system call of this thread fails, from the n-th on and as often as wanted.
//
//     FailingSystemCalls failing({.call = SystemCall::Write, .first = 2, .error = ENOSPC});
//     platform.CloseOutput(file);
//     EXPECT_EQ(failing.Count(SystemCall::Write), 2);
//
// The program that this is linked into defines the calls itself, and goes on to the system's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vellumark::tests {

enum class SystemCall : std::uint8_t {
  Open,
  Stat,
  Lock,
  Truncate,
  Duplicate,
  Read,
  Write,
  Close,
  LoadLibrary
};
inline constexpr std::size_t kSystemCalls = 9;

class FailingSystemCalls {
 public:
  struct Fault {
    SystemCall call = SystemCall::Write;
    int first = 1;                  ///< the first call that fails, counted from 1
    int times = 1;                  ///< how many in a row
    int error = 0;                  ///< errno; 0: the call takes only `at_most` bytes
    std::size_t at_most = 0;        ///< of a read or write
    bool done_nevertheless = true;  ///< a failing Close closes, as it does on Linux
  };

  explicit FailingSystemCalls(const Fault& fault) noexcept;
  FailingSystemCalls(const FailingSystemCalls&) = delete;
  FailingSystemCalls& operator=(const FailingSystemCalls&) = delete;
  FailingSystemCalls(FailingSystemCalls&&) = delete;
  FailingSystemCalls& operator=(FailingSystemCalls&&) = delete;
  ~FailingSystemCalls();

  /// A second fault, for what happens after a first one.
  void Also(const Fault& fault) noexcept { second_ = fault; }

  [[nodiscard]] int Count(SystemCall call) const noexcept {
    return counts_[static_cast<std::size_t>(call)];
  }

  /// Counts a call and returns how it is to fail; null if it is not.
  const Fault* Next(SystemCall call) noexcept;

 private:
  Fault first_;
  Fault second_{.first = 0, .times = 0};
  std::array<int, kSystemCalls> counts_{};
};

}  // namespace vellumark::tests
