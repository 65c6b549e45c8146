// SPDX-License-Identifier: MIT
#include "platform/picture_format.h"

#include <algorithm>
#include <string_view>

namespace vellumark::platform {
namespace {

/// "1,234,567"
std::string Grouped(std::int64_t number) {
  const std::string digits = std::to_string(number);
  std::string grouped;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) grouped += ',';
    grouped += digits[i];
  }
  return grouped;
}

std::string Pixels(std::int64_t width, std::int64_t height) {
  return Grouped(width) + " x " + Grouped(height) + " pixels";
}

}  // namespace

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

std::string CheckSize(std::int64_t width, std::int64_t height, int bits, std::int64_t greatest,
                      std::int64_t more) {
  if (width < 1 || height < 1) return "the picture has no pixels";
  if (width > kGreatestSide || height > kGreatestSide) {
    return "the picture has more than 32,767 pixels a side";
  }
  const auto size = static_cast<std::int64_t>(Bitmap::RowSize(width, bits)) * height + more;
  const std::int64_t most = std::min(greatest, kGreatestPicture);
  if (size <= most) return {};
  return "decoding its " + Pixels(width, height) + " takes " + Grouped(size) +
         " bytes, but the limit is " + Grouped(most) + " bytes";
}

std::string CheckClaim(std::int64_t width, std::int64_t height, std::uint64_t most,
                       std::size_t file_size) {
  const std::int64_t pixels = width * height;
  if (pixels <= kBelievedPixels || static_cast<std::uint64_t>(pixels) <= most) return {};
  return "a file of " + Grouped(static_cast<std::int64_t>(file_size)) + " bytes cannot fill the " +
         Pixels(width, height) + " that it states";
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
