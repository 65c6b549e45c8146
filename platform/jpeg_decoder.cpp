// SPDX-License-Identifier: MIT
#include "platform/jpeg_decoder.h"

#include <vector>

#include "platform/jpeg_errors.h"
#include "platform/picture_limits.h"

namespace vellumark::platform {
namespace {

constexpr int kBits = 24;

class JpegReader {
 public:
  explicit JpegReader(std::span<const std::uint8_t> file) : file_(file) { errors_.Attach(info_); }
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;
  JpegReader(JpegReader&&) = delete;
  JpegReader& operator=(JpegReader&&) = delete;
  ~JpegReader() { jpeg_destroy_decompress(&info_); }

  bool ReadHeader() {
    return errors_.Run([this] {
      jpeg_create_decompress(&info_);
      errors_.CountScans(info_);
      jpeg_mem_src(&info_, file_.data(), static_cast<unsigned long>(file_.size()));
      jpeg_read_header(&info_, TRUE);
      ChooseColors();
    });
  }

  bool ReadRows(Bitmap& bitmap) {
    if (Inked()) inks_.resize(static_cast<std::size_t>(info_.image_width) * 4);
    return errors_.Run([this, &bitmap] {
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

  /// Whether the file is long enough for its size: each block of 8 x 8 samples takes a bit or more,
  /// other than in arithmetic coding.
  [[nodiscard]] bool LongEnough() const {
    std::uint64_t blocks = 0;
    for (int i = 0; i < info_.num_components; ++i) {
      const jpeg_component_info& component = info_.comp_info[i];
      blocks += std::uint64_t{component.width_in_blocks} * component.height_in_blocks;
    }
    return info_.arith_code || blocks <= std::uint64_t{file_.size()} * 8;
  }

  [[nodiscard]] std::int64_t Width() const { return info_.image_width; }
  [[nodiscard]] std::int64_t Height() const { return info_.image_height; }
  [[nodiscard]] std::string_view Reason() const { return errors_.Reason(); }

 private:
  [[nodiscard]] bool Inked() const { return info_.out_color_space == JCS_CMYK; }

  void ChooseColors() {
    switch (info_.jpeg_color_space) {
      case JCS_GRAYSCALE:
      case JCS_RGB:
      case JCS_YCbCr: info_.out_color_space = JCS_EXT_BGR; break;
      case JCS_CMYK:
      case JCS_YCCK: info_.out_color_space = JCS_CMYK; break;
      default: errors_.Fail("the JPG file has unknown colours");
    }
  }

  /// Each ink takes its complement away, and black dims all three. An Adobe marker goes with inks
  /// that are stored as their complements.
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

std::string_view DecodeJpeg(std::span<const std::uint8_t> file, std::int64_t greatest,
                            Bitmap& bitmap) {
  JpegReader reader(file);
  if (!reader.ReadHeader()) return reader.Reason();
  const std::string_view too_large = CheckSize(reader.Width(), reader.Height(), kBits, greatest);
  if (!too_large.empty()) return too_large;
  if (!reader.LongEnough()) return kCutOff;
  AllocatePixels(reader.Width(), reader.Height(), kBits, bitmap);
  return reader.ReadRows(bitmap) ? std::string_view() : reader.Reason();
}

}  // namespace vellumark::platform
