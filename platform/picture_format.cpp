// SPDX-License-Identifier: MIT
#include "platform/picture_format.h"

#include <algorithm>

namespace vellumark::platform {

PictureKind PictureKindOf(std::span<const std::uint8_t> file) noexcept {
  const auto starts_with = [file](std::string_view mark) {
    return file.size() >= mark.size() &&
           std::equal(mark.begin(), mark.end(), file.begin(), [](char c, std::uint8_t byte) {
             return static_cast<std::uint8_t>(c) == byte;
           });
  };
  if (starts_with("BM")) return PictureKind::Bmp;
  if (starts_with("GIF87a") || starts_with("GIF89a")) return PictureKind::Gif;
  if (starts_with("\xFF\xD8\xFF")) return PictureKind::Jpeg;
  if (starts_with("\x89PNG\r\n\x1A\n")) return PictureKind::Png;
  return PictureKind::Unknown;
}

std::string_view CheckSize(std::int64_t width, std::int64_t height, int bits,
                           std::int64_t greatest) noexcept {
  if (width < 1 || height < 1) return "the picture has no pixels";
  if (width > kGreatestSide || height > kGreatestSide) {
    return "the picture has more than 32,767 pixels a side";
  }
  const auto size = static_cast<std::int64_t>(Bitmap::RowSize(width, bits)) * height;
  if (size > std::min(greatest, kGreatestPicture)) return "the picture has too many pixels";
  return {};
}

void SetFormat(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap) {
  bitmap.width = static_cast<std::int32_t>(width);
  bitmap.height = static_cast<std::int32_t>(height);
  bitmap.bits_per_pixel = static_cast<std::uint8_t>(bits);
  bitmap.palette.assign(bits <= 8 ? std::size_t{1} << bits : 0, {});
}

void AllocatePixels(std::int64_t width, std::int64_t height, int bits, Bitmap& bitmap) {
  SetFormat(width, height, bits, bitmap);
  bitmap.pixels.assign(bitmap.RowSize() * static_cast<std::size_t>(height), 0);
}

}  // namespace vellumark::platform
