// SPDX-License-Identifier: MIT
//
// Bitmap: a decoded picture, as a platform hands it to a document.
//
// The layout is that of a device-independent bitmap. Rows are stored from the bottom of the picture
// upwards, each padded to a multiple of 4 bytes:
//
//     bits per pixel   palette       a pixel
//     1, 4, 8          2^bits        index into the palette, first pixel in the highest bits
//     16               none          5 bits blue, 5 green, 5 red, 1 unused, lowest bits first
//     24               none          blue, green, red
//     32               none          blue, green, red, one byte of the file's own
//
// A picture with transparency has, beside that, how opaque each pixel is: 0 shows what lies below
// it, 255 the pixel alone. The rows of `alpha` are in the order of those of `pixels`, without
// padding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vellumark {

struct Bitmap {
  struct Color {
    std::uint8_t blue = 0;
    std::uint8_t green = 0;
    std::uint8_t red = 0;
    std::uint8_t reserved = 0;
  };

  std::int32_t width = 0;   ///< pixels, 1 to 32,767
  std::int32_t height = 0;  ///< pixels, 1 to 32,767
  std::uint8_t bits_per_pixel = 0;
  std::vector<Color> palette;
  std::vector<std::uint8_t> pixels;  ///< height rows of RowSize() bytes
  std::vector<std::uint8_t> alpha;   ///< width x height; empty if the picture is opaque

  /// Bytes of a stored row of `pixel_count` pixels.
  static constexpr std::size_t RowSize(std::int64_t pixel_count, int bits) noexcept {
    return static_cast<std::size_t>((pixel_count * bits + 31) / 32 * 4);
  }
  [[nodiscard]] std::size_t RowSize() const noexcept { return RowSize(width, bits_per_pixel); }
};

}  // namespace vellumark
