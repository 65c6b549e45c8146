// SPDX-License-Identifier: MIT
//
// A JPG file, baseline or progressive, as 24-bit color.
//
// Grayscale, YCbCr and RGB come from the JPEG library as color; CMYK and YCCK are converted here,
// inverted if the file carries an Adobe marker. Data that ends early and codes that do not exist
// stand for missing pixels, and the picture is refused; surplus bytes and unknown markers are
// skipped.
#include <cstdio>  // jpeglib.h needs FILE
#include <jpeglib.h>
#include <vector>
#include <jerror.h>

#include "platform/jump_frame.h"
#include "platform/loaded_library.h"
#include "platform/picture_decoder.h"
#include "platform/picture_format.h"

namespace vellumark::platform {
namespace {

#define VELLUMARK_JPEG_FUNCTIONS(X, Table) \
  X(Table, jpeg_CreateDecompress)          \
  X(Table, jpeg_destroy_decompress)        \
  X(Table, jpeg_finish_decompress)         \
  X(Table, jpeg_has_multiple_scans)        \
  X(Table, jpeg_mem_src)                   \
  X(Table, jpeg_read_header)               \
  X(Table, jpeg_read_scanlines)            \
  X(Table, jpeg_start_decompress)          \
  X(Table, jpeg_std_error)
VELLUMARK_LOADED_LIBRARY(JpegLibrary, VELLUMARK_SONAME_JPEG, VELLUMARK_JPEG_FUNCTIONS)

constexpr int kBits = 24;

/// A file may have any number of scans over the whole picture, in a few bytes each. One with more
/// than this, or whose scans go over all its blocks more often than this, not counting the first
/// few millions, is made to keep a processor busy.
constexpr int kMostScans = 100;
constexpr std::uint64_t kMostPasses = 16;
constexpr std::uint64_t kFreeBlocks = std::uint64_t{1} << 22U;
constexpr const char* kTooManyScans = "the JPG file has more than 100 scans";
constexpr const char* kTooManyPasses =
    "the scans of the JPG file go over the picture more than 16 times";

std::uint64_t BlocksOf(const jpeg_component_info& component) {
  return std::uint64_t{component.width_in_blocks} * component.height_in_blocks;
}

/// The blocks of 8 x 8 samples of all components.
std::uint64_t BlocksOf(const jpeg_decompress_struct& jpeg) {
  std::uint64_t blocks = 0;
  for (int i = 0; i < jpeg.num_components; ++i) blocks += BlocksOf(jpeg.comp_info[i]);
  return blocks;
}

/// The JPEG library's errors, warnings and scans, watched over.
///
///     errors.Attach(info);
///     const bool done = errors.Frame().Run([&] {
///       jpeg_create_decompress(&info);
///       ...
///     });
class JpegErrors {
 public:
  JpegErrors() {
    jpeg_std_error(&manager_);
    manager_.error_exit = OnError;
    manager_.emit_message = OnWarning;
    manager_.output_message = [](jpeg_common_struct* /*info*/) {};
    progress_.progress_monitor = OnProgress;
  }
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

  [[nodiscard]] JumpFrame& Frame() noexcept { return frame_; }

 private:
  static JpegErrors& Of(jpeg_common_struct* info) {
    return *static_cast<JpegErrors*>(info->client_data);
  }

  static void OnError(jpeg_common_struct* info) {
    const int code = info->err->msg_code;
    JumpFrame& frame = Of(info).frame_;
    if (code == JERR_OUT_OF_MEMORY || code == JERR_NO_BACKING_STORE) frame.RunsOutOfMemory();
    frame.Fail("the JPG file is damaged");
  }

  /// A negative level is a warning; the others are for debugging.
  static void OnWarning(jpeg_common_struct* info, int level) {
    if (level >= 0) return;
    switch (info->err->msg_code) {
      case JWRN_JPEG_EOF:        // the file ends
      case JWRN_HIT_MARKER:      // a segment ends
      case JWRN_HUFF_BAD_CODE:   // zeros stand for what cannot be read
      case JWRN_ARITH_BAD_CODE:  // likewise
        Of(info).frame_.Fail(kCutOff);
      default: break;
    }
  }

  /// Called at each row of blocks.
  static void OnProgress(jpeg_common_struct* info) {
    const auto& jpeg = *reinterpret_cast<jpeg_decompress_struct*>(info);
    JpegErrors& errors = Of(info);
    if (jpeg.input_scan_number == errors.scan_) return;
    errors.scan_ = jpeg.input_scan_number;
    if (errors.scan_ > kMostScans) errors.frame_.Fail(kTooManyScans);
    for (int i = 0; i < jpeg.comps_in_scan; ++i) errors.passed_ += BlocksOf(*jpeg.cur_comp_info[i]);
    if (errors.passed_ > kFreeBlocks + kMostPasses * BlocksOf(jpeg))
      errors.frame_.Fail(kTooManyPasses);
  }

  jpeg_error_mgr manager_{};
  jpeg_progress_mgr progress_{};
  JumpFrame frame_;
  int scan_ = 0;              // the last one that was counted
  std::uint64_t passed_ = 0;  // blocks of all scans up to it
};

class JpegReader {
 public:
  explicit JpegReader(std::span<const std::uint8_t> file) : file_(file) { errors_.Attach(info_); }
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;
  JpegReader(JpegReader&&) = delete;
  JpegReader& operator=(JpegReader&&) = delete;
  ~JpegReader() { jpeg_destroy_decompress(&info_); }

  bool ReadHeader() {
    return errors_.Frame().Run([this] {
      jpeg_create_decompress(&info_);
      errors_.CountScans(info_);
      jpeg_mem_src(&info_, file_.data(), static_cast<unsigned long>(file_.size()));
      jpeg_read_header(&info_, TRUE);
      ChooseColors();
    });
  }

  bool ReadRows(Bitmap& bitmap) {
    if (Inked()) inks_.resize(static_cast<std::size_t>(info_.image_width) * 4);
    return errors_.Frame().Run([this, &bitmap] {
      jpeg_start_decompress(&info_);
      const std::size_t row_size = bitmap.RowSize();
      std::uint8_t* row = bitmap.pixels.data() + bitmap.pixels.size();
      while (info_.output_scanline < info_.output_height) {
        row -= row_size;  // rows come from the top
        JSAMPROW target = Inked() ? inks_.data() : row;
        jpeg_read_scanlines(&info_, &target, 1);
        if (Inked()) MixInks(row);
      }
      jpeg_finish_decompress(&info_);
    });
  }

  /// Why the file is too short for its size, or an empty text. A block takes a bit or more; only
  /// with arithmetic coding the blocks of a plain area may take less.
  [[nodiscard]] std::string CheckLength() const {
    const std::uint64_t most = std::uint64_t{file_.size()} * 8;
    const std::uint64_t blocks = BlocksOf(info_);
    if (blocks <= most) return {};
    return info_.arith_code ? CheckClaim(Width(), Height(), 0, file_.size()) : kCutOff;
  }

  /// Bytes of the coefficients that are kept until the last scan has been read; none if each
  /// component's are complete when its rows are.
  [[nodiscard]] std::int64_t CoefficientSize() {
    if (jpeg_has_multiple_scans(&info_) == 0) return 0;
    std::int64_t blocks = 0;
    for (int i = 0; i < info_.num_components; ++i) {
      const jpeg_component_info& component = info_.comp_info[i];
      blocks += RoundedUp(component.width_in_blocks, component.h_samp_factor) *
                RoundedUp(component.height_in_blocks, component.v_samp_factor);
    }
    return blocks * static_cast<std::int64_t>(sizeof(JBLOCK));
  }

  [[nodiscard]] std::int64_t Width() const { return info_.image_width; }
  [[nodiscard]] std::int64_t Height() const { return info_.image_height; }
  [[nodiscard]] const char* Reason() { return errors_.Frame().Reason(); }

 private:
  static std::int64_t RoundedUp(std::int64_t blocks, int step) {
    return (blocks + step - 1) / step * step;
  }

  [[nodiscard]] bool Inked() const { return info_.out_color_space == JCS_CMYK; }

  void ChooseColors() {
    switch (info_.jpeg_color_space) {
      case JCS_GRAYSCALE:
      case JCS_RGB:
      case JCS_YCbCr: info_.out_color_space = JCS_EXT_BGR; break;
      case JCS_CMYK:
      case JCS_YCCK: info_.out_color_space = JCS_CMYK; break;
      default: errors_.Frame().Fail("the JPG file has unknown colors");
    }
  }

  /// Each ink takes its complement away, and black dims all three. With an Adobe marker, inks are
  /// stored as their complements.
  void MixInks(std::uint8_t* to) const {
    const unsigned complement = info_.saw_Adobe_marker ? 0 : 255;
    for (std::size_t i = 0; i < inks_.size(); i += 4, to += 3) {
      const unsigned light = inks_[i + 3] ^ complement;
      for (std::size_t ink = 0; ink < 3; ++ink) {
        to[2 - ink] =
            static_cast<std::uint8_t>(((inks_[i + ink] ^ complement) * light + 127) / 255);
      }
    }
  }

  std::span<const std::uint8_t> file_;
  JpegErrors errors_;
  jpeg_decompress_struct info_{};
  std::vector<std::uint8_t> inks_;  // one row: cyan, magenta, yellow, black
};

}  // namespace

std::string DecodeJpeg(std::span<const std::uint8_t> file, std::int64_t greatest, Bitmap& bitmap) {
  if (std::string missing = JpegLibrary::Load(); !missing.empty()) return missing;
  JpegReader reader(file);
  if (!reader.ReadHeader()) return reader.Reason();
  std::string why_not =
      CheckSize(reader.Width(), reader.Height(), kBits, greatest, reader.CoefficientSize());
  if (why_not.empty()) why_not = reader.CheckLength();
  if (!why_not.empty()) return why_not;
  AllocatePixels(reader.Width(), reader.Height(), kBits, bitmap);
  return reader.ReadRows(bitmap) ? "" : reader.Reason();
}

}  // namespace vellumark::platform
