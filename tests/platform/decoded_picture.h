// SPDX-License-Identifier: MIT
//
// Decode: a picture file that a test has in memory, as a Bitmap.
#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "platform/picture_decoder.h"
#include "platform/picture_format.h"

namespace vellumark::tests {

/// Why the file is not a picture, or an empty text; a BMP file the same if its memory may be kept.
inline std::string Decode(const std::string& file, Bitmap& bitmap,
                          std::int64_t greatest = platform::kGreatestPicture) {
  const auto* const data = reinterpret_cast<const std::uint8_t*>(file.data());
  std::string why_not = platform::DecodePicture({data, file.size()}, greatest, bitmap);
  if (file.starts_with("BM")) {
    Bitmap kept;
    std::vector<std::uint8_t> bytes(data, data + file.size());
    EXPECT_EQ(platform::DecodePicture(std::move(bytes), greatest, kept), why_not);
    EXPECT_EQ(kept.pixels, bitmap.pixels);
  }
  return why_not;
}

}  // namespace vellumark::tests
