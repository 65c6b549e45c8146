// SPDX-License-Identifier: MIT
//
// PictureSource: where a picture comes from: the name of a file of the platform, UTF-8, or the
// bytes of such a file in the host's memory, which must stay there for the length of the call.
//
//     Decode(platform, "logo.png", bitmap, reason)
//     Decode(platform, std::span(bytes), bitmap, reason)
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include <vellumark/platform.h>

namespace vellumark::layout {

using PictureSource = std::variant<std::string_view, std::span<const std::uint8_t>>;

/// As Platform::DecodePicture.
inline bool Decode(Platform& platform, const PictureSource& source, Bitmap& bitmap,
                   std::string& reason) {
  if (const auto* const file = std::get_if<std::string_view>(&source)) {
    return platform.DecodePicture(*file, bitmap, reason);
  }
  return platform.DecodePictureBytes(std::get<std::span<const std::uint8_t>>(source), bitmap,
                                     reason);
}

/// What a refusal calls the picture: the file's name, or "1234 bytes in memory".
inline std::string NameOf(const PictureSource& source) {
  if (const auto* const file = std::get_if<std::string_view>(&source)) return std::string(*file);
  const std::size_t size = std::get<std::span<const std::uint8_t>>(source).size();
  return std::to_string(size) + (size == 1 ? " byte in memory" : " bytes in memory");
}

}  // namespace vellumark::layout
