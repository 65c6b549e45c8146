// SPDX-License-Identifier: MIT
//
// One small file of each kind, cut at every length and with every single bit turned: it is refused
// with a reason, or it is a whole bitmap within the limit.
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <string>

#include "platform/picture_decoder.h"

namespace vellumark::tests {
namespace {

constexpr std::int64_t kGreatest = std::int64_t{4} << 20U;
constexpr const char* kFiles[] = {
    "1.bmp",
    "4.bmp",
    "8_core.bmp",
    "16_565.bmp",
    "24_top_down.bmp",
    "32_v5.bmp",
    "rle4.bmp",
    "rle8.bmp",
    "plain.gif",
    "interlaced.gif",
    "baseline.jpg",
    "progressive.jpg",
    "cmyk.jpg",
    "gray1.png",
    "indexed4.png",
    "indexed8_alpha_interlaced.png",
    "gray2_key.png",
    "true16_key.png",
    "true_alpha_interlaced.png",
};

std::string Content(const std::string& name) {
  std::ifstream file(std::string(VELLUMARK_FUZZ_CORPUS) + "/picture/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Decodes a file and returns whether it was taken; what comes of it must agree with that.
bool Decodes(const std::string& file, Bitmap& bitmap, const std::string& what) {
  const std::string why_not = platform::DecodePicture(
      {reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, kGreatest, bitmap);
  if (!why_not.empty()) {
    EXPECT_TRUE(bitmap.pixels.empty() && bitmap.alpha.empty() && bitmap.width == 0) << what;
    return false;
  }
  const auto width = static_cast<std::size_t>(bitmap.width);
  const auto height = static_cast<std::size_t>(bitmap.height);
  EXPECT_TRUE(width >= 1 && height >= 1 && width <= 32767 && height <= 32767) << what;
  EXPECT_EQ(bitmap.pixels.size(), bitmap.RowSize() * height) << what;
  EXPECT_TRUE(bitmap.alpha.empty() || bitmap.alpha.size() == width * height) << what;
  EXPECT_LE(bitmap.pixels.size() + bitmap.alpha.size(), static_cast<std::size_t>(kGreatest));
  EXPECT_EQ(bitmap.palette.size(),
            bitmap.bits_per_pixel <= 8 ? std::size_t{1} << bitmap.bits_per_pixel : 0U)
      << what;
  return true;
}

TEST(DamagedPictures, CutAtEveryLength) {
  for (const char* const name : kFiles) {
    const std::string file = Content(name);
    Bitmap whole;
    ASSERT_TRUE(Decodes(file, whole, name));
    for (std::size_t size = 0; size < file.size(); ++size) {
      const std::string what = std::string(name) + " cut to " + std::to_string(size);
      Bitmap bitmap;
      if (Decodes(file.substr(0, size), bitmap, what)) {
        EXPECT_EQ(bitmap.pixels, whole.pixels) << what;
        EXPECT_GE(size, file.size() - 3) << what;  // an end mark, and its pad
      }
    }
  }
}

TEST(DamagedPictures, EveryBitTurned) {
  for (const char* const name : kFiles) {
    std::string file = Content(name);
    int taken = 0;
    for (std::size_t bit = 0; bit < 8 * file.size(); ++bit) {
      char& byte = file[bit / 8];
      const char before = byte;
      byte = static_cast<char>(byte ^ 1 << bit % 8);
      Bitmap bitmap;
      taken += Decodes(file, bitmap, std::string(name) + ", bit " + std::to_string(bit)) ? 1 : 0;
      byte = before;
    }
    // A PNG has sums over all that matters; only a chunk of another name is another chunk.
    const std::string_view kind(name);
    const bool chunk =
        kind.find("alpha") != std::string_view::npos || kind.find("key") != std::string_view::npos;
    const int most = !kind.ends_with(".png") ? 8 * static_cast<int>(file.size()) : chunk ? 31 : 0;
    EXPECT_LE(taken, most) << name;
  }
}

}  // namespace
}  // namespace vellumark::tests
