// SPDX-License-Identifier: MIT
#include "layout/picture.h"

#include <gtest/gtest.h>

#include <vellumark/memory_platform.h>
#include <vellumark/run_time_error.h>

#include "layout/dib.h"
#include "layout/picture_alpha.h"
#include "layout/resize.h"
#include "tests/bmp_file.h"

namespace vellumark::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;
using layout::Picture;
using layout::Size;

TEST(Resize, FitsIntoTheBoxAndNeverEnlarges) {
  const auto fit = [](int width, int height) {
    return layout::Resize({100, 100}, {width, height});
  };
  EXPECT_EQ(fit(400, 200), (Size{100, 50}));
  EXPECT_EQ(fit(50, 60), (Size{50, 60}));
  EXPECT_EQ(fit(50, 400), (Size{12, 100})) << "12.5 is rounded to the even neighbor";
  EXPECT_EQ(fit(150, 300), (Size{50, 100})) << "to the width first, then to the height";
  EXPECT_EQ(fit(1000, 1), (Size{100, 1})) << "nothing vanishes";
  EXPECT_EQ(layout::Resize({32767, 32766}, {32767, 32767}), (Size{32766, 32766}));
}

TEST(Dib, HoldsOneBitmapAtATime) {
  MemoryPlatform memory;
  std::string reason;
  layout::Dib dib;
  EXPECT_TRUE(dib.Create(1, 2, 24));
  EXPECT_EQ(dib.ImageScanWidth(), 4);
  EXPECT_FALSE(dib.Create(10, 1, 1));
  memory.PutFile("a.bmp", PlainBmp(2, 2));
  EXPECT_FALSE(dib.Load(memory, "a.bmp", reason));
  dib.Destroy();
  dib.Destroy();
  EXPECT_FALSE(dib.Create(0, 1, 24));
  EXPECT_FALSE(dib.Create(1, -1, 24));
  EXPECT_FALSE(dib.Create(1, 1, 33));
  EXPECT_TRUE(dib.Load(memory, "a.bmp", reason));
  EXPECT_EQ(dib.ImageScanWidth(), 8);
}

/// A host's platform whose bitmaps are whatever it likes.
class AnyPlatform : public MemoryPlatform {
 public:
  bool DecodePicture(std::string_view /*file*/, Bitmap& decoded, std::string& /*reason*/) override {
    decoded = bitmap;
    return true;
  }
  Bitmap bitmap;
};

TEST(Dib, TakesNoBitmapThatIsNotWhole) {
  AnyPlatform platform;
  const auto takes = [&](int width, int height, int bits, std::size_t palette, std::size_t pixels,
                         std::size_t alpha = 0) {
    layout::Dib dib;
    std::string reason;
    platform.bitmap.width = width;
    platform.bitmap.height = height;
    platform.bitmap.bits_per_pixel = static_cast<std::uint8_t>(bits);
    platform.bitmap.palette.resize(palette);
    platform.bitmap.pixels.resize(pixels);
    platform.bitmap.alpha.resize(alpha);
    return dib.Load(platform, "a", reason);
  };
  EXPECT_TRUE(takes(1, 1, 24, 0, 4, 1));
  EXPECT_TRUE(takes(1, 1, 8, 256, 4));
  EXPECT_FALSE(takes(0, 1, 24, 0, 0));
  EXPECT_FALSE(takes(1, 0, 24, 0, 0));
  EXPECT_TRUE(takes(32767, 1, 1, 2, 4096));
  EXPECT_TRUE(takes(1, 32767, 1, 2, 131068));
  EXPECT_FALSE(takes(32768, 1, 1, 2, 4096));
  EXPECT_FALSE(takes(1, 32768, 1, 2, 131072));
  EXPECT_FALSE(takes(1, 1, 2, 4, 4));
  EXPECT_FALSE(takes(1, 1, 8, 255, 4));
  EXPECT_FALSE(takes(1, 1, 24, 0, 3));
  EXPECT_FALSE(takes(1, 1, 24, 0, 4, 2));
}

/// A host's platform that miscounts.
class HalfPlatform : public MemoryPlatform {
 public:
  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override {
    const bool decoded = MemoryPlatform::DecodePicture(file, bitmap, reason);
    bitmap.pixels.resize(bitmap.pixels.size() / 2);
    return decoded;
  }
};

class PictureTest : public testing::Test {
 protected:
  bool Load(const std::string& file) {
    memory.PutFile("picture", file);
    return layout::LoadPicture(memory, "picture", layout::DeepSamples::AsTheyAre, picture, reason);
  }

  MemoryPlatform memory;
  Picture picture;
  std::string reason;
};

TEST_F(PictureTest, DeepRowsBecome24BitsInTheirOrder) {
  const std::uint32_t colors[] = {0xFF8400, 0x00FF84, 0x8400FF, 0x840000, 0x008400, 0x000084};
  const auto samples_of = [&](int bits) {
    BmpFile file{.width = 3, .height = 2, .bits = bits};
    const auto put = [&](std::uint32_t number) {
      for (int i = 0; i < bits / 8; ++i) file.pixels.push_back((number >> 8 * i) & 0xFFU);
    };
    for (std::size_t i = 0; i < std::size(colors); ++i) {
      const std::uint32_t color = colors[i];
      put(bits > 16 ? color | 0x77000000U
                    : (color >> 19 & 31U) << 10 | (color >> 11 & 31U) << 5 | (color >> 3 & 31U));
      while (i % 3 == 2 && file.pixels.size() % 4 != 0) file.pixels.push_back(0x55);
    }
    memory.PutFile("picture", file.Bytes());
    EXPECT_TRUE(
        layout::LoadPicture(memory, "picture", layout::DeepSamples::TrueColor, picture, reason));
    EXPECT_EQ(picture.bits_per_pixel, 24);
    return picture.samples;
  };
  Bytes expected;
  for (const std::uint32_t color : colors) {
    for (const int shift : {16, 8, 0}) expected.push_back(color >> shift & 0xFFU);
  }
  for (const int bits : {16, 24, 32}) EXPECT_EQ(samples_of(bits), expected) << bits;
}

TEST_F(PictureTest, RowsLoseTheirPaddingAndColorsComeRedFirst) {
  ASSERT_TRUE(Load(
      BmpFile{.width = 3, .height = 2, .pixels = {1,  2,  3,  4,  5,  6,  7,  8,  9,  0, 0, 0,  //
                                                  11, 12, 13, 14, 15, 16, 17, 18, 19, 0, 0, 0}}
          .Bytes()));
  EXPECT_EQ(picture.samples,
            (Bytes{3, 2, 1, 6, 5, 4, 9, 8, 7, 13, 12, 11, 16, 15, 14, 19, 18, 17}));
  ASSERT_TRUE(Load(BmpFile{.width = 2, .bits = 32, .pixels = {1, 2, 3, 4, 5, 6, 7, 8}}.Bytes()));
  EXPECT_EQ(picture.samples, (Bytes{3, 2, 1, 4, 7, 6, 5, 8})) << "the fourth byte stays";
}

TEST_F(PictureTest, ColorsComeRedFirstInRowsOfEveryLength) {
  for (const int bits : {24, 32}) {
    for (int width = 1; width < 40; ++width) {
      const auto size = static_cast<std::size_t>(width * bits / 8);
      Bytes stored(size);
      for (std::size_t i = 0; i < size; ++i) stored[i] = static_cast<std::uint8_t>(i + 1);
      Bytes expected = stored;
      for (std::size_t at = 0; at < size; at += static_cast<std::size_t>(bits / 8)) {
        std::swap(expected[at], expected[at + 2]);
      }
      stored.resize((size + 3) / 4 * 4);
      ASSERT_TRUE(Load(BmpFile{.width = width, .bits = bits, .pixels = stored}.Bytes()));
      EXPECT_EQ(picture.samples, expected) << bits << ", " << width;
    }
  }
}

TEST_F(PictureTest, IndicesStayPackedAndThePaletteComesRedFirst) {
  ASSERT_TRUE(Load(BmpFile{
      .width = 10, .bits = 1, .palette = {0x112233, 0x445566}, .pixels = {0xAA, 0x80, 0xEE, 0xEE}}
                       .Bytes()));
  EXPECT_EQ(picture.samples, (Bytes{0xAA, 0x80}));
  EXPECT_EQ(picture.palette, (Bytes{0x11, 0x22, 0x33, 0x44, 0x55, 0x66}));
  ASSERT_TRUE(Load(BmpFile{.width = 5, .bits = 4, .pixels = {0x12, 0x34, 0x50, 0xEE}}.Bytes()));
  EXPECT_EQ(picture.samples, (Bytes{0x12, 0x34, 0x50}));
  EXPECT_EQ(picture.palette.size(), 48U);
  ASSERT_TRUE(Load(BmpFile{.width = 2, .bits = 8, .pixels = {200, 1, 0xEE, 0xEE}}.Bytes()));
  EXPECT_EQ(picture.samples, (Bytes{200, 1}));
  EXPECT_EQ(picture.palette.size(), 768U);
}

TEST_F(PictureTest, SixteenBitPixelsPassTheirFirstByteToTheLeft) {
  ASSERT_TRUE(Load(BmpFile{
      .width = 2,
      .height = 3,
      .bits = 16,
      .pixels = {0xA1, 1, 0xA2, 2, 0xB1, 3, 0xB2, 4, 0xC1, 5, 0xC2,
                 6}}.Bytes()));
  EXPECT_EQ(picture.samples, (Bytes{0xA2, 1, 0, 2, 0xB2, 3, 0xA1, 4, 0xC2, 5, 0xB1, 6}))
      << "a row's last pixel takes what the row below pushed out";
}

TEST_F(PictureTest, ARowIsCountedInSixteenBits) {
  EXPECT_TRUE(Load(PlainBmp(10922, 1)));
  try {
    Load(PlainBmp(10923, 1));
    ADD_FAILURE();
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), RunTimeError::Overflow);
  }
  const std::uint32_t width = 32767;
  EXPECT_TRUE(Load(BmpFile{.width = width, .bits = 1, .pixels = Bytes(4096)}.Bytes()));
  EXPECT_EQ(picture.samples.size(), 4096U);
}

TEST_F(PictureTest, AFileThatCannotBeLoadedLeavesThePictureAsItWas) {
  picture.width = 77;
  picture.samples = {1, 2};
  EXPECT_FALSE(layout::LoadPicture(memory, "/no/such/file", layout::DeepSamples::AsTheyAre, picture,
                                   reason));
  EXPECT_EQ(reason, "No such file or directory");
  EXPECT_EQ(picture.width, 77);
  EXPECT_EQ(picture.samples.size(), 2U);
  HalfPlatform half;
  half.PutFile("a.bmp", PlainBmp(2, 2));
  EXPECT_FALSE(layout::LoadPicture(half, "a.bmp", layout::DeepSamples::AsTheyAre, picture, reason));
  EXPECT_EQ(picture.width, 77);
}

/// A host's platform that finds pixels shine through.
class GlassPlatform : public MemoryPlatform {
 public:
  bool DecodePicture(std::string_view file, Bitmap& bitmap, std::string& reason) override {
    const bool decoded = MemoryPlatform::DecodePicture(file, bitmap, reason);
    bitmap.alpha = alpha;
    return decoded;
  }
  Bytes alpha;
};

TEST_F(PictureTest, PaperShowsThroughWhatIsNotOpaque) {
  GlassPlatform glass;
  glass.alpha = {0, 255, 128};
  const auto composed = [&](const BmpFile& file) {
    glass.PutFile("picture", file.Bytes());
    const bool loaded =
        layout::LoadPicture(glass, "picture", layout::DeepSamples::AsTheyAre, picture, reason);
    EXPECT_TRUE(loaded) << reason;
    EXPECT_EQ(picture.alpha, glass.alpha);
    layout::ComposeOver({255, 100, 0}, picture);
    EXPECT_TRUE(picture.bits_per_pixel == 24 && picture.alpha.empty() && picture.palette.empty());
    return picture.samples;
  };
  const Bytes pixels = {0, 100, 200, 0, 100, 200, 0, 100, 200, 0, 0, 0};
  EXPECT_EQ(composed({.width = 3, .pixels = pixels}),
            (Bytes{255, 100, 0, 200, 100, 0, 227, 100, 0}));
  EXPECT_EQ(composed({.width = 3, .bits = 4, .palette = {0xC86400, 0, 0}, .pixels = {0, 0, 0, 0}}),
            (Bytes{255, 100, 0, 200, 100, 0, 227, 100, 0}));
  EXPECT_EQ(composed({.width = 3, .bits = 1, .palette = {0, 0xC86400}, .pixels = {0xC0, 0, 0, 0}}),
            (Bytes{255, 100, 0, 200, 100, 0, 127, 50, 0}));
  const Bytes column = {0x80, 0, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(composed({.height = 3, .bits = 1, .palette = {0, 0xC86400}, .pixels = column}),
            (Bytes{255, 100, 0, 200, 100, 0, 127, 50, 0}));
  EXPECT_EQ(composed({.width = 3, .bits = 16, .pixels = {0xFF, 0x7F, 0, 0x7C, 0, 0, 0, 0}}),
            (Bytes{255, 100, 0, 255, 0, 0, 127, 50, 0}))
      << "deep samples become true color for it";
  glass.alpha = {1, 1};
  EXPECT_EQ(composed({.width = 2, .pixels = {127, 0, 0, 128, 0, 0, 0, 0}}),
            (Bytes{254, 100, 0, 254, 100, 1}))
      << "to the nearest";

  glass.alpha = {0, 255, 0};
  EXPECT_FALSE(
      layout::LoadPicture(glass, "picture", layout::DeepSamples::AsTheyAre, picture, reason))
      << "one byte a pixel, or none";
  glass.alpha = Bytes(10923);
  glass.PutFile("picture", BmpFile{.width = 10923, .bits = 1, .pixels = Bytes(1368)}.Bytes());
  EXPECT_THROW(
      layout::LoadPicture(glass, "picture", layout::DeepSamples::AsTheyAre, picture, reason),
      RunTimeError)
      << "it would have 24 bits";
  EXPECT_TRUE(
      layout::LoadPicture(glass, "picture", layout::DeepSamples::TrueColor, picture, reason));
}

}  // namespace
}  // namespace vellumark::tests
