// SPDX-License-Identifier: MIT
//
// The sizes of pictures that are decoded at all, and the bitmap that a decoder fills.
//
// Widths and heights are 16 bits wide in a document and samples are counted in 32 bits. A file says
// its size in a few bytes, so it is checked before anything is allocated.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

inline constexpr std::int64_t kGreatestSide = std::numeric_limits<std::int16_t>::max();
inline constexpr std::int64_t kGreatestPicture = std::numeric_limits<std::int32_t>::max();

inline constexpr std::string_view kCutOff = "the pixel data is cut off";

/// Why a picture of this size and depth is not decoded, where its bitmap may have `greatest` bytes;
/// empty for one that is.
[[nodiscard]] std::string_view CheckSize(std::int64_t width, std::int64_t height, int bits,
                                         std::int64_t greatest) noexcept;

/// Gives `bitmap` a size that was checked, and a black palette if it needs one.
void SetFormat(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap);

/// The same, and pixels of 0.
void AllocatePixels(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap);

}  // namespace vellumark::platform
