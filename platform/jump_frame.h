// SPDX-License-Identifier: MIT
//
// JumpFrame: calls of a C library that leaves its depths by a jump, as a result instead.
//
//     const bool done = frame.Run([&] {
//       png_read_info(png, info);              // may call back what calls frame.Fail("damaged")
//       ...
//     });
//     if (!done) return frame.Reason();
//
// The jump passes the frames between Run and Fail, so nothing that has a destructor may live in the
// steps, and nothing in them may throw.
#pragma once

#include <csetjmp>
#include <new>

namespace vellumark::platform {

class JumpFrame {
 public:
  /// Returns whether `steps` came to their end. Throws std::bad_alloc if memory ran out.
  template <class Steps>
  bool Run(const Steps& steps) {
    // The libraries offer no other way out.
    if (setjmp(jump_) == 0) {  // NOLINT(cert-err52-cpp,modernize-avoid-setjmp-longjmp)
      steps();
      return true;
    }
    if (out_of_memory_) throw std::bad_alloc();
    return false;
  }

  /// Leaves Run.
  [[noreturn]] void Fail(const char* reason) {
    reason_ = reason;
    std::longjmp(jump_, 1);  // NOLINT(cert-err52-cpp): back into Run
  }

  /// Run throws if the library fails after this.
  void RunsOutOfMemory() noexcept { out_of_memory_ = true; }

  /// Why Run returned false.
  [[nodiscard]] const char* Reason() const noexcept { return reason_; }

 private:
  std::jmp_buf jump_{};
  const char* reason_ = "";
  bool out_of_memory_ = false;
};

}  // namespace vellumark::platform
