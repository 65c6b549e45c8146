// SPDX-License-Identifier: MIT
#include "platform/picture_decoder.h"

#include "platform/picture_format.h"

namespace vellumark::platform {
namespace {

std::string_view DecodeAny(std::span<const std::uint8_t> file, std::int64_t greatest,
                           Bitmap& bitmap) {
  switch (PictureKindOf(file)) {
    case PictureKind::Bmp: return DecodeBmp(file, greatest, bitmap);
    case PictureKind::Gif: return DecodeGif(file, greatest, bitmap);
    case PictureKind::Jpeg: return DecodeJpeg(file, greatest, bitmap);
    case PictureKind::Unknown: break;
  }
  return kUnknownPicture;
}

}  // namespace

std::string_view DecodePicture(std::span<const std::uint8_t> file, std::int64_t greatest,
                               Bitmap& bitmap) {
  bitmap = {};
  const std::string_view why_not = DecodeAny(file, greatest, bitmap);
  if (!why_not.empty()) bitmap = {};
  return why_not;
}

}  // namespace vellumark::platform
