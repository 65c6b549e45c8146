// SPDX-License-Identifier: MIT
#include "platform/picture_decoder.h"

#include "platform/bmp_decoder.h"
#include "platform/gif_decoder.h"
#include "platform/jpeg_decoder.h"
#include "platform/picture_kind.h"

namespace vellumark::platform {
namespace {

using Decoder = std::string_view (*)(std::span<const std::uint8_t> file, std::int64_t greatest,
                                     Bitmap& bitmap);

std::string_view DecodeUnknown(std::span<const std::uint8_t> /*file*/, std::int64_t /*greatest*/,
                               Bitmap& /*bitmap*/) {
  return kUnknownPicture;
}

Decoder DecoderOf(std::span<const std::uint8_t> file) {
  switch (PictureKindOf(file)) {
    case PictureKind::Bmp: return DecodeBmp;
    case PictureKind::Gif: return DecodeGif;
    case PictureKind::Jpeg: return DecodeJpeg;
    case PictureKind::Unknown: break;
  }
  return DecodeUnknown;
}

}  // namespace

std::string_view DecodePicture(std::span<const std::uint8_t> file, std::int64_t greatest,
                               Bitmap& bitmap) {
  bitmap = {};
  const std::string_view why_not = DecoderOf(file)(file, greatest, bitmap);
  if (!why_not.empty()) bitmap = {};
  return why_not;
}

}  // namespace vellumark::platform
