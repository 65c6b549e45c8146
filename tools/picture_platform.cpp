// SPDX-License-Identifier: MIT
#include "tools/picture_platform.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "tools/file_name.h"

namespace vellumark::tools {
namespace {

int Scaled(int length, int wanted, int present) {
  const std::int64_t product = std::int64_t{length} * wanted;
  return std::max(static_cast<int>((product + present / 2) / present), 1);
}

/// Five bits, from `bit` on, scaled to eight.
std::uint8_t FiveBits(unsigned pixel, unsigned bit) {
  return static_cast<std::uint8_t>(((pixel >> bit & 31U) * 255U + 15U) / 31U);
}

/// Converts 16 and 32 bits per pixel to 24.
void MakeTrueColor(Bitmap& bitmap) {
  if (bitmap.bits_per_pixel != 16 && bitmap.bits_per_pixel != 32) return;
  const std::size_t from_step = bitmap.bits_per_pixel / 8U;
  const std::size_t from_row = bitmap.RowSize();
  const std::size_t to_row = Bitmap::RowSize(bitmap.width, 24);
  std::vector<std::uint8_t> pixels(to_row * static_cast<std::size_t>(bitmap.height));
  for (std::size_t y = 0; y < static_cast<std::size_t>(bitmap.height); ++y) {
    const std::uint8_t* from = bitmap.pixels.data() + y * from_row;
    std::uint8_t* to = pixels.data() + y * to_row;
    for (std::int32_t x = 0; x < bitmap.width; ++x, from += from_step, to += 3) {
      if (from_step == 4) {
        std::copy_n(from, 3, to);
      } else {
        const unsigned pixel = from[0] | static_cast<unsigned>(from[1]) << 8U;
        for (unsigned part = 0; part < 3; ++part) to[part] = FiveBits(pixel, 5 * part);
      }
    }
  }
  bitmap.bits_per_pixel = 24;
  bitmap.pixels = std::move(pixels);
}

}  // namespace

PictureSize FitInto(const PictureSize& box, const PictureSize& size) {
  PictureSize fitted = size;
  if (fitted.width > box.width) {
    fitted = {box.width, Scaled(fitted.height, box.width, fitted.width)};
  }
  if (fitted.height > box.height) {
    fitted = {Scaled(fitted.width, box.height, fitted.height), box.height};
  }
  return fitted;
}

bool PicturePlatform::Measure(std::string_view name, PictureSize& pixels, std::string& reason) {
  Bitmap bitmap;
  if (!DecodePicture(name, bitmap, reason)) return false;
  pixels = {bitmap.width, bitmap.height};
  kept_ = std::move(bitmap);
  kept_name_ = name;
  return true;
}

bool PicturePlatform::DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) {
  if (std::exchange(kept_name_, std::nullopt) == file) {
    bitmap = std::move(kept_);
    return true;
  }
  kept_ = {};
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): MemoryPlatform's looks at the files in memory
  if (!PortablePlatform::DecodePicture(file, bitmap, reason)) return false;
  MakeTrueColor(bitmap);
  return true;
}

bool PicturePlatform::ReadPicture(std::string_view file, std::vector<std::uint8_t>& bytes,
                                  std::string& reason) {
  // NOLINTNEXTLINE(bugprone-parent-virtual-call)
  return PortablePlatform::ReadPicture(TextOf(folder_ / PathOf(file)), bytes, reason);
}

}  // namespace vellumark::tools
