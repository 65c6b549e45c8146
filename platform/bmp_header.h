// SPDX-License-Identifier: MIT
//
// BmpHeader: what stands in a BMP file in front of its pixels.
//
//     file    = "BM" file-size:4 0:4 pixels-at:4 header [masks] palette ... pixels
//     header  = core | info                        numbers are little-endian
//     core    = 12:4 width:2 height:2 planes:2 bits:2
//     info    = size:4 width:4 height:4 planes:2 bits:2 compression:4 image-size:4
//               resolution:8 colours-used:4 colours-important:4 rest
//                                                  size 40, 52, 56, 64, 108 or 124; a negative
//                                                  height is that of rows from the top
//     masks   = red:4 green:4 blue:4 [alpha:4]     where bit fields are used, at byte 54: behind a
//                                                  header of 40 bytes, inside a longer one
//     palette = (blue green red [0]) *             without the 0 behind a core header
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vellumark::platform {

/// The bytes of a file as little-endian numbers; bytes behind its end are 0.
class LittleEndianBytes {
 public:
  explicit LittleEndianBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  [[nodiscard]] std::uint32_t At8(std::size_t at) const {
    return at < bytes_.size() ? bytes_[at] : 0;
  }
  [[nodiscard]] std::uint32_t At16(std::size_t at) const { return At8(at) | At8(at + 1) << 8; }
  [[nodiscard]] std::uint32_t At32(std::size_t at) const { return At16(at) | At16(at + 2) << 16; }

 private:
  std::span<const std::uint8_t> bytes_;
};

enum class BmpPixels { Plain, Rle8, Rle4, BitFields };

struct BmpHeader {
  std::int64_t width = 0;
  std::int64_t height = 0;
  bool top_down = false;
  int bits = 0;
  BmpPixels pixels = BmpPixels::Plain;
  std::array<std::uint32_t, 4> masks{};  ///< blue, green, red, alpha; for BitFields
  std::size_t palette_at = 0;
  std::size_t palette_entry_size = 4;
  std::size_t palette_count = 0;  ///< entries in the file, at most 2^bits
  std::size_t pixels_at = 0;
};

/// Fills `header` and answers an empty text, or why the file is none that can be read.
[[nodiscard]] std::string_view ReadBmpHeader(std::span<const std::uint8_t> file, BmpHeader& header);

}  // namespace vellumark::platform
