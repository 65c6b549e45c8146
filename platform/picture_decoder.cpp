// SPDX-License-Identifier: MIT
#include "platform/picture_decoder.h"

#include <algorithm>

#include "platform/bmp_decoder.h"
#include "platform/gif_decoder.h"
#include "platform/jpeg_decoder.h"

namespace vellumark::platform {
namespace {

using Decoder = std::string_view (*)(std::span<const std::uint8_t> file, std::int64_t greatest,
                                     Bitmap& bitmap);

std::string_view DecodeUnknown(std::span<const std::uint8_t> /*file*/, std::int64_t /*greatest*/,
                               Bitmap& /*bitmap*/) {
  return "not a BMP, GIF or JPG file";
}

Decoder DecoderOf(std::span<const std::uint8_t> file) {
  const auto starts_with = [file](std::string_view mark) {
    return file.size() >= mark.size() &&
           std::equal(mark.begin(), mark.end(), file.begin(), [](char c, std::uint8_t byte) {
             return static_cast<std::uint8_t>(c) == byte;
           });
  };
  if (starts_with("BM")) return DecodeBmp;
  if (starts_with("GIF87a") || starts_with("GIF89a")) return DecodeGif;
  if (starts_with("\xFF\xD8\xFF")) return DecodeJpeg;
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
