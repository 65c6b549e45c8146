// SPDX-License-Identifier: MIT
#include "platform/jpeg_errors.h"

#include <jerror.h>

#include "platform/picture_limits.h"

namespace vellumark::platform {

JpegErrors::JpegErrors() {
  jpeg_std_error(&manager_);
  manager_.error_exit = OnError;
  manager_.emit_message = OnWarning;
  manager_.output_message = [](jpeg_common_struct* /*info*/) {};
  progress_.progress_monitor = OnProgress;
}

void JpegErrors::Fail(std::string_view reason) {
  reason_ = reason;
  std::longjmp(jump_, 1);  // NOLINT(cert-err52-cpp): back into Run
}

JpegErrors& JpegErrors::Of(jpeg_common_struct* info) {
  return *static_cast<JpegErrors*>(info->client_data);
}

void JpegErrors::OnError(jpeg_common_struct* info) { Of(info).Fail("the JPG file is damaged"); }

/// A negative level is a warning, the others are for debugging.
void JpegErrors::OnWarning(jpeg_common_struct* info, int level) {
  if (level >= 0) return;
  switch (info->err->msg_code) {
    case JWRN_JPEG_EOF:        // the file ends
    case JWRN_HIT_MARKER:      // a segment ends
    case JWRN_HUFF_BAD_CODE:   // zeros stand for what cannot be read
    case JWRN_ARITH_BAD_CODE:  // likewise
      Of(info).Fail(kCutOff);
    default: ++info->err->num_warnings;
  }
}

void JpegErrors::OnProgress(jpeg_common_struct* info) {
  if (reinterpret_cast<jpeg_decompress_struct*>(info)->input_scan_number > kMostScans) {
    Of(info).Fail("the JPG file has more than 100 scans");
  }
}

}  // namespace vellumark::platform
