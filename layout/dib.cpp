// SPDX-License-Identifier: MIT
#include "layout/dib.h"

#include <limits>
#include <utility>

namespace vellumark::layout {
namespace {

constexpr int kGreatestSide = std::numeric_limits<std::int16_t>::max();

std::size_t PaletteCount(int bits) { return bits <= 8 ? std::size_t{1} << bits : 0; }

bool IsDepth(int bits) {
  return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

/// A host's own platform is not trusted to have counted right.
bool IsWhole(const Bitmap& bitmap) {
  const auto pixel_count =
      static_cast<std::size_t>(bitmap.width) * static_cast<std::size_t>(bitmap.height);
  return bitmap.width >= 1 && bitmap.height >= 1 && bitmap.width <= kGreatestSide &&
         bitmap.height <= kGreatestSide && IsDepth(bitmap.bits_per_pixel) &&
         bitmap.palette.size() == PaletteCount(bitmap.bits_per_pixel) &&
         bitmap.pixels.size() == bitmap.RowSize() * static_cast<std::size_t>(bitmap.height) &&
         (bitmap.alpha.empty() || bitmap.alpha.size() == pixel_count);
}

}  // namespace

bool Dib::Create(std::int16_t width, std::int16_t height, std::uint8_t bit_count) {
  if (width < 1 || height < 1 || bit_count > 32 || bitmap_.width > 0) return false;
  bitmap_.width = width;
  bitmap_.height = height;
  bitmap_.bits_per_pixel = bit_count;
  bitmap_.palette.resize(PaletteCount(bit_count));
  bitmap_.pixels.resize(bitmap_.RowSize() * static_cast<std::size_t>(height));
  return true;
}

bool Dib::Load(Platform& platform, const PictureSource& source, std::string& reason) {
  Bitmap loaded;
  if (!Decode(platform, source, loaded, reason)) return false;
  if (bitmap_.width > 0 || !IsWhole(loaded)) {
    reason = "no bitmap can be made of it";
    return false;
  }
  bitmap_ = std::move(loaded);
  return true;
}

}  // namespace vellumark::layout
