// SPDX-License-Identifier: MIT
//
// DecodePicture: a BMP, GIF, JPG or PNG file, in memory, as a Bitmap.
//
//     Bitmap bitmap;
//     std::string why_not = DecodePicture(bytes, kGreatestPicture, bitmap);
//     if (!why_not.empty()) ...                      // "the pixel data is cut off"
//
// The kind is recognized by the first bytes. Nothing else is opened, nothing is written to standard
// error, and a file that lacks pixels is refused as a whole.
//
//     BMP   1, 4, 8, 16, 24, 32 bits at their own depth                      bmp_decoder.cpp
//     GIF   the first frame, 8 bits                                          gif_decoder.cpp
//     JPG   24 bits, whatever the file's colors                              jpeg_decoder.cpp
//     PNG   1, 4, 8 or 24 bits, and alpha                                    png_decoder.cpp
//
// A build without VELLUMARK_PICTURE_DECODERS reads BMP files only and says so of the other kinds.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// Fills `bitmap` and returns an empty text, or a short sentence that says why not; then `bitmap`
/// is empty. `greatest` is the most bytes that the bitmap may have. Throws std::bad_alloc.
[[nodiscard]] std::string DecodePicture(std::span<const std::uint8_t> file, std::int64_t greatest,
                                        Bitmap& bitmap);

/// The same; the memory of `file` may become the bitmap's, so that a large BMP file is in memory
/// once.
[[nodiscard]] std::string DecodePicture(std::vector<std::uint8_t>&& file, std::int64_t greatest,
                                        Bitmap& bitmap);

/// The same for a file of one kind. On failure `bitmap` may be left half filled.
[[nodiscard]] std::string DecodeBmp(std::span<const std::uint8_t> file, std::int64_t greatest,
                                    Bitmap& bitmap, std::vector<std::uint8_t>* own_file);
[[nodiscard]] std::string DecodeGif(std::span<const std::uint8_t> file, std::int64_t greatest,
                                    Bitmap& bitmap);
[[nodiscard]] std::string DecodeJpeg(std::span<const std::uint8_t> file, std::int64_t greatest,
                                     Bitmap& bitmap);
[[nodiscard]] std::string DecodePng(std::span<const std::uint8_t> file, std::int64_t greatest,
                                    Bitmap& bitmap);

}  // namespace vellumark::platform
