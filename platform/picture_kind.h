// SPDX-License-Identifier: MIT
//
// PictureKindOf: the kind of a picture file, told by its first bytes and never by its name.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>

namespace vellumark::platform {

enum class PictureKind : std::uint8_t { Unknown, Bmp, Gif, Jpeg };

inline constexpr std::string_view kUnknownPicture = "not a BMP, GIF or JPG file";

[[nodiscard]] inline PictureKind PictureKindOf(std::span<const std::uint8_t> file) noexcept {
  const auto starts_with = [file](std::string_view mark) {
    return file.size() >= mark.size() &&
           std::equal(mark.begin(), mark.end(), file.begin(), [](char c, std::uint8_t byte) {
             return static_cast<std::uint8_t>(c) == byte;
           });
  };
  if (starts_with("BM")) return PictureKind::Bmp;
  if (starts_with("GIF87a") || starts_with("GIF89a")) return PictureKind::Gif;
  if (starts_with("\xFF\xD8\xFF")) return PictureKind::Jpeg;
  return PictureKind::Unknown;
}

}  // namespace vellumark::platform
