// SPDX-License-Identifier: MIT
//
// Which picture files are read: their kinds, recognized by the first bytes and never by the name,
// and their sizes.
//
// Widths and heights are 16 bits wide in a document, and samples are counted in 32 bits. A file
// states its size in a few bytes, so the size is checked before anything is allocated: against what
// the platform allows, and against what the file can fill.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

inline constexpr std::int64_t kGreatestSide = std::numeric_limits<std::int16_t>::max();
inline constexpr std::int64_t kGreatestPicture = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int64_t kGreatestFile = std::numeric_limits<std::int32_t>::max();

/// Reasons that more than one decoder or platform gives.
inline constexpr const char* kUnknownPicture = "not a BMP, GIF, JPG or PNG file";
inline constexpr const char* kNotRegular = "not a regular file";
inline constexpr const char* kLargerThan2Gb = "the file is larger than 2 GB";
inline constexpr const char* kCutOff = "the pixel data is cut off";
inline constexpr const char* kDamagedPng = "the PNG file is damaged";

enum class PictureKind : std::uint8_t { Unknown, Bmp, Gif, Jpeg, Png };

[[nodiscard]] PictureKind PictureKindOf(std::span<const std::uint8_t> file) noexcept;

/// Returns why a picture of this size and depth is not decoded if that may take `greatest` bytes,
/// or an empty text. `more` bytes are needed beside those of the bitmap.
[[nodiscard]] std::string CheckSize(std::int64_t width, std::int64_t height, int bits,
                                    std::int64_t greatest, std::int64_t more = 0);

/// Up to this many pixels a file is believed whatever it says: 16 MiB at 8 bits.
inline constexpr std::int64_t kBelievedPixels = std::int64_t{1} << 24U;

/// Returns why a file of `file_size` bytes, whose data can fill at most `most` pixels, does not
/// have a picture of this size, or an empty text. For kinds in which a short file may state pixels
/// that it does not have, and be whole.
[[nodiscard]] std::string CheckClaim(std::int64_t width, std::int64_t height, std::uint64_t most,
                                     std::size_t file_size);

/// Gives `bitmap` a size that was checked, and a black palette if it needs one.
void SetFormat(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap);

/// The same, and pixels of 0.
void AllocatePixels(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap);

}  // namespace vellumark::platform
