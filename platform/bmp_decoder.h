// SPDX-License-Identifier: MIT
//
// DecodeBmp: a BMP file at its own depth.
//
// Headers: core (12 bytes), info (40 to 64) and versions 4 and 5. Pixels: uncompressed, RLE8, RLE4,
// and bit fields, which are brought to 5-5-5 at 16 bits and to 8-8-8-8 at 32. Rows may run upwards
// or downwards. Palette entries that the file does not have are black; profiles are not looked at.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// See DecodePicture (platform/picture_decoder.h).
[[nodiscard]] std::string_view DecodeBmp(std::span<const std::uint8_t> file, std::int64_t greatest,
                                         Bitmap& bitmap);

}  // namespace vellumark::platform
