// SPDX-License-Identifier: MIT
//
// Dib: at most one device-independent bitmap, from a picture file or empty.
//
//     Dib dib;
//     std::string reason;
//     if (!dib.Load(platform, "logo.bmp", reason)) ...
//     dib.Pixels()                                   // begins with the bottom row
//
// A Dib that holds a bitmap does not take another one until Destroy.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <vellumark/bitmap.h>
#include <vellumark/platform.h>

#include "layout/picture_source.h"

namespace vellumark::layout {

class Dib {
 public:
  /// Makes an empty bitmap: black, or index 0 of a black palette. Returns false for a
  /// size below 1, for more than 32 bits per pixel, and if there is a bitmap already.
  bool Create(std::int16_t width, std::int16_t height, std::uint8_t bit_count);

  /// Takes the bitmap of a picture file. Returns false, with a `reason`, if the platform cannot
  /// decode the file, or returns pixels, a palette or an alpha that do not match its size and
  /// depth.
  bool Load(Platform& platform, const PictureSource& source, std::string& reason);

  /// Forgets the bitmap, if there is one.
  void Destroy() noexcept { bitmap_ = {}; }

  [[nodiscard]] std::int16_t ImageWidth() const noexcept {
    return static_cast<std::int16_t>(bitmap_.width);
  }
  [[nodiscard]] std::int16_t ImageHeight() const noexcept {
    return static_cast<std::int16_t>(bitmap_.height);
  }
  [[nodiscard]] std::uint8_t BitsPerPixel() const noexcept { return bitmap_.bits_per_pixel; }

  /// Bytes of a stored row, a multiple of 4; 0 if there is no bitmap.
  [[nodiscard]] std::int32_t ImageScanWidth() const noexcept {
    return static_cast<std::int32_t>(bitmap_.RowSize());
  }

  /// 2^bits colors at 8 bits per pixel or fewer, else none.
  [[nodiscard]] std::span<const Bitmap::Color> Palette() const noexcept { return bitmap_.palette; }

  /// The stored rows, from the bottom of the picture upwards.
  [[nodiscard]] std::span<const std::uint8_t> Pixels() const noexcept { return bitmap_.pixels; }

  /// How opaque each pixel is, in the order of the rows; empty if all are opaque.
  [[nodiscard]] std::span<const std::uint8_t> Alpha() const noexcept { return bitmap_.alpha; }

  /// Moves the alpha out; the bitmap is opaque then.
  [[nodiscard]] std::vector<std::uint8_t> TakeAlpha() noexcept {
    return std::exchange(bitmap_.alpha, {});
  }

  /// Moves the stored rows out; no bitmap is left.
  [[nodiscard]] std::vector<std::uint8_t> TakePixels() noexcept {
    std::vector<std::uint8_t> pixels = std::move(bitmap_.pixels);
    Destroy();
    return pixels;
  }

 private:
  Bitmap bitmap_;
};

}  // namespace vellumark::layout
