// SPDX-License-Identifier: MIT
//
// JpegErrors: the JPEG library's errors as a result instead of a message and an exit.
//
// The library is C and leaves an operation by a jump:
//
//     JpegErrors errors;
//     errors.Attach(info);
//     const bool done = errors.Run([&] { jpeg_read_header(&info, TRUE); });
//     if (!done) return errors.reason;
//
// The jump passes the frames between Run and the library, so nothing that has a destructor may live
// in `steps`, and nothing in it may throw.
#pragma once

#include <csetjmp>
#include <cstdio>  // jpeglib.h needs FILE
#include <jpeglib.h>
#include <string_view>

namespace vellumark::platform {

class JpegErrors {
 public:
  /// A progressive file may have any number of scans over the whole picture; beyond this one it is
  /// made to keep a processor busy.
  static constexpr int kMostScans = 100;

  JpegErrors();
  JpegErrors(const JpegErrors&) = delete;
  JpegErrors& operator=(const JpegErrors&) = delete;
  JpegErrors(JpegErrors&&) = delete;
  JpegErrors& operator=(JpegErrors&&) = delete;
  ~JpegErrors() = default;

  /// Makes `info`, all zero and not yet created, report here.
  void Attach(jpeg_decompress_struct& info) {
    info.err = &manager_;
    info.client_data = this;  // creating `info` keeps these two and clears the rest
  }

  /// Has the scans of `info`, now created, counted.
  void CountScans(jpeg_decompress_struct& info) { info.progress = &progress_; }

  /// Whether `steps` came to their end.
  template <class Steps>
  bool Run(const Steps& steps) {
    // The library offers no other way out of its depths.
    if (setjmp(jump_) != 0) return false;  // NOLINT(cert-err52-cpp,modernize-avoid-setjmp-longjmp)
    steps();
    return true;
  }

  /// Leaves Run.
  [[noreturn]] void Fail(std::string_view reason);

  /// Why Run answered false.
  [[nodiscard]] std::string_view Reason() const noexcept { return reason_; }

 private:
  static JpegErrors& Of(jpeg_common_struct* info);
  static void OnError(jpeg_common_struct* info);
  static void OnWarning(jpeg_common_struct* info, int level);
  static void OnProgress(jpeg_common_struct* info);

  jpeg_error_mgr manager_{};
  jpeg_progress_mgr progress_{};
  std::jmp_buf jump_{};
  std::string_view reason_;
};

}  // namespace vellumark::platform
