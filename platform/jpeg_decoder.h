// SPDX-License-Identifier: MIT
//
// DecodeJpeg: a JPG file, baseline or progressive, as 24-bit colour.
//
// Greyscale, YCbCr and RGB come from the JPEG library as colour; CMYK and YCCK are converted here,
// inverted where the file carries an Adobe marker. Data that ends early and codes that do not exist
// stand for missing pixels and refuse the picture; surplus bytes and unknown markers are skipped.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// See DecodePicture (platform/picture_decoder.h).
[[nodiscard]] std::string_view DecodeJpeg(std::span<const std::uint8_t> file, std::int64_t greatest,
                                          Bitmap& bitmap);

}  // namespace vellumark::platform
