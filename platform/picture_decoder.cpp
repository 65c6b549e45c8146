// SPDX-License-Identifier: MIT
#include "platform/picture_decoder.h"

#include "platform/picture_format.h"

namespace vellumark::platform {
namespace {

#if defined(VELLUMARK_PICTURE_DECODERS)
constexpr bool kWithLibraries = true;
#else
constexpr bool kWithLibraries = false;  // then the decoders that need one do not exist
#endif

std::string DecodeAny(std::span<const std::uint8_t> file, std::int64_t greatest, Bitmap& bitmap,
                      std::vector<std::uint8_t>* own_file) {
  switch (PictureKindOf(file)) {
    case PictureKind::Bmp: return DecodeBmp(file, greatest, bitmap, own_file);
    case PictureKind::Gif:
      if constexpr (kWithLibraries) return DecodeGif(file, greatest, bitmap);
      return "this build cannot read GIF files";
    case PictureKind::Jpeg:
      if constexpr (kWithLibraries) return DecodeJpeg(file, greatest, bitmap);
      return "this build cannot read JPG files";
    case PictureKind::Png:
      if constexpr (kWithLibraries) return DecodePng(file, greatest, bitmap);
      return "this build cannot read PNG files";
    case PictureKind::Unknown: break;
  }
  return kUnknownPicture;
}

std::string Decode(std::span<const std::uint8_t> file, std::int64_t greatest, Bitmap& bitmap,
                   std::vector<std::uint8_t>* own_file) {
  bitmap = {};
  if (file.size() > static_cast<std::uint64_t>(kGreatestFile)) return kLargerThan2Gb;
  std::string why_not = DecodeAny(file, greatest, bitmap, own_file);
  if (!why_not.empty()) bitmap = {};
  return why_not;
}

}  // namespace

std::string DecodePicture(std::span<const std::uint8_t> file, std::int64_t greatest,
                          Bitmap& bitmap) {
  return Decode(file, greatest, bitmap, nullptr);
}

std::string DecodePicture(std::vector<std::uint8_t>&& file, std::int64_t greatest, Bitmap& bitmap) {
  return Decode(file, greatest, bitmap, &file);
}

}  // namespace vellumark::platform
