// SPDX-License-Identifier: MIT
#include "platform/png_pixels.h"

#include <algorithm>

namespace vellumark::platform {

void SeparateAlpha(std::size_t stride, Bitmap& bitmap) {
  const auto width = static_cast<std::size_t>(bitmap.width);
  const auto height = static_cast<std::size_t>(bitmap.height);
  const std::size_t color = bitmap.bits_per_pixel / 8U;
  bitmap.alpha.resize(width * height);
  std::uint8_t* alpha = bitmap.alpha.data();
  for (std::size_t y = 0; y < height; ++y) {
    const std::uint8_t* from = bitmap.pixels.data() + y * stride;
    std::uint8_t* const row = bitmap.pixels.data() + y * bitmap.RowSize();
    std::uint8_t* to = row;
    for (std::size_t x = 0; x < width; ++x) {
      to = std::copy_n(from, color, to);
      from += color;
      *alpha++ = *from++;
    }
    std::fill(to, row + bitmap.RowSize(), std::uint8_t{0});
  }
  bitmap.pixels.resize(bitmap.RowSize() * height);
  ForgetOpaqueAlpha(bitmap);
}

/// Each byte becomes two, so that a row is gone over from its end.
void WidenTwoBits(std::size_t stride, Bitmap& bitmap) {
  const std::size_t size = bitmap.RowSize();
  for (std::size_t y = 0; y < static_cast<std::size_t>(bitmap.height); ++y) {
    std::uint8_t* const row = bitmap.pixels.data() + y * stride;
    for (std::size_t at = size; at-- != 0;) {
      const unsigned pair = row[at / 2] >> (at % 2 == 0 ? 4U : 0U);
      row[at] = static_cast<std::uint8_t>((pair & 0xCU) << 2U | (pair & 3U));
    }
  }
}

void TakeGrays(std::size_t count, Bitmap& bitmap) {
  for (std::size_t i = 0; i < count; ++i) {
    const auto gray = static_cast<std::uint8_t>(i * 255 / (count - 1));
    bitmap.palette[i] = {gray, gray, gray, 0};
  }
}

void ForgetOpaqueAlpha(Bitmap& bitmap) {
  const bool opaque = std::all_of(bitmap.alpha.begin(), bitmap.alpha.end(),
                                  [](std::uint8_t alpha) { return alpha == 255; });
  if (opaque) bitmap.alpha = {};
}

}  // namespace vellumark::platform
