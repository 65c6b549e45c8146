// SPDX-License-Identifier: MIT
//
// Which picture files are read: their kinds, recognized by the first bytes and never by the name,
// and their sizes.
//
// Widths and heights are 16 bits wide in a document, and samples are counted in 32 bits. A file
// states its size in a few bytes, so the size is checked before anything is allocated.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

inline constexpr std::int64_t kGreatestSide = std::numeric_limits<std::int16_t>::max();
inline constexpr std::int64_t kGreatestPicture = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int64_t kGreatestFile = std::numeric_limits<std::int32_t>::max();

/// Reasons that more than one decoder or platform gives.
inline constexpr std::string_view kUnknownPicture = "not a BMP, GIF, JPG or PNG file";
inline constexpr std::string_view kNotRegular = "not a regular file";
inline constexpr std::string_view kLargerThan2Gb = "the file is larger than 2 GB";
inline constexpr std::string_view kCutOff = "the pixel data is cut off";
inline constexpr std::string_view kDamagedPng = "the PNG file is damaged";

enum class PictureKind : std::uint8_t { Unknown, Bmp, Gif, Jpeg, Png };

[[nodiscard]] PictureKind PictureKindOf(std::span<const std::uint8_t> file) noexcept;

/// Returns why a picture of this size and depth is not decoded if its bitmap may have `greatest`
/// bytes, or an empty text.
[[nodiscard]] std::string_view CheckSize(std::int64_t width, std::int64_t height, int bits,
                                         std::int64_t greatest) noexcept;

/// Gives `bitmap` a size that was checked, and a black palette if it needs one.
void SetFormat(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap);

/// The same, and pixels of 0.
void AllocatePixels(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap);

}  // namespace vellumark::platform
