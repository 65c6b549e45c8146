// SPDX-License-Identifier: MIT
//
// Decode: a picture file that a test has in memory, as a Bitmap.
#pragma once

#include <string>

#include "platform/picture_decoder.h"
#include "platform/picture_format.h"

namespace vellumark::tests {

/// Why the file is not a picture, or an empty text.
inline std::string Decode(const std::string& file, Bitmap& bitmap,
                          std::int64_t greatest = platform::kGreatestPicture) {
  const auto* const data = reinterpret_cast<const std::uint8_t*>(file.data());
  return std::string(platform::DecodePicture({data, file.size()}, greatest, bitmap));
}

}  // namespace vellumark::tests
