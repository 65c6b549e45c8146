// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/picture_decoder.h"
#include "platform/picture_format.h"
#include "platform/png_header.h"
#include "tests/platform/decoded_picture.h"
#include "tests/png_file.h"

namespace vellumark::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<std::uint32_t> PaletteOf(const Bitmap& bitmap, std::size_t count) {
  std::vector<std::uint32_t> colors;
  for (const Bitmap::Color& color : bitmap.palette) {
    colors.push_back(static_cast<std::uint32_t>(color.red << 16 | color.green << 8 | color.blue));
  }
  colors.resize(count);
  return colors;
}

TEST(PngDecoder, EveryColorTypeAndDepthBecomesItsBitmap) {
  struct Case {
    const char* what;
    PngFile file;
    int bits;
    Bytes pixels;
    Bytes alpha;
  };
  const Case cases[] = {
      {"gray, 1 bit, rows from the bottom",
       {.width = 9, .height = 2, .depth = 1, .rows = {0xA5, 0x80, 0x5A, 0}},
       1,
       {0x5A, 0, 0, 0, 0xA5, 0x80, 0, 0},
       {}},
      {"gray, 2 bits",
       {.width = 5, .depth = 2, .rows = {0x1B, 0xC0}},
       4,
       {0x01, 0x23, 0x30, 0},
       {}},
      {"gray, 4 bits", {.width = 3, .depth = 4, .rows = {0x12, 0x30}}, 4, {0x12, 0x30, 0, 0}, {}},
      {"gray, 16 bits, rounded",
       {.width = 3, .depth = 16, .rows = {0x12, 0x12, 0x12, 0xFF, 0xFF, 0xFF}},
       8,
       {0x12, 0x13, 0xFF, 0},
       {}},
      {"true color", {.width = 1, .colors = 2, .rows = {1, 2, 3}}, 24, {3, 2, 1, 0}, {}},
      {"true color, 16 bits",
       {.depth = 16, .colors = 2, .rows = {1, 1, 2, 2, 3, 3}},
       24,
       {3, 2, 1, 0},
       {}},
      {"indexed, 2 bits",
       {.width = 3, .depth = 2, .colors = 3, .palette = Bytes(12), .rows = {0x6C}},
       4,
       {0x12, 0x30, 0, 0},
       {}},
      {"indexed, a color for nothing, another half",
       {.width = 3,
        .depth = 4,
        .colors = 3,
        .palette = Bytes(9),
        .transparent = std::string("\0\x80", 2),
        .rows = {0x01, 0x20}},
       8,
       {0, 1, 2, 0},
       {0, 0x80, 255}},
      {"indexed, a table that takes nothing away",
       {.width = 1, .colors = 3, .palette = Bytes(3), .transparent = "\xFF", .rows = {0}},
       8,
       {0, 0, 0, 0},
       {}},
      {"gray and alpha, one pixel wide",
       {.height = 2, .colors = 4, .rows = {10, 20, 30, 40}},
       8,
       {30, 0, 0, 0, 10, 0, 0, 0},
       {40, 20}},
      {"gray and alpha, 16 bits",
       {.depth = 16, .colors = 4, .rows = {0x11, 0x11, 0x80, 0x80}},
       8,
       {0x11, 0, 0, 0},
       {0x80}},
      {"true color and alpha",
       {.width = 2,
        .height = 2,
        .colors = 6,
        .rows = {1, 2, 3, 4, 5, 6, 7, 255, 9, 10, 11, 12, 13, 14, 15, 16}},
       24,
       {11, 10, 9, 15, 14, 13, 0, 0, 3, 2, 1, 7, 6, 5, 0, 0},
       {12, 16, 4, 255}},
      {"true color and alpha, opaque all over",
       {.width = 2, .colors = 6, .rows = {1, 2, 3, 255, 5, 6, 7, 255}},
       24,
       {3, 2, 1, 7, 6, 5, 0, 0},
       {}},
      {"one gray that is transparent",
       {.width = 4, .depth = 2, .transparent = std::string("\0\2", 2), .rows = {0x1B}},
       8,
       {0, 85, 170, 255},
       {255, 255, 0, 255}},
      {"one color that is transparent, by its 16 bits",
       {.width = 2,
        .depth = 16,
        .colors = 2,
        .transparent = std::string("\0\1\0\1\0\2", 6),
        .rows = {0, 1, 0, 1, 0, 2, 0, 1, 0, 1, 0, 1}},
       24,
       {0, 0, 0, 0, 0, 0, 0, 0},
       {0, 255}},
  };
  for (const Case& c : cases) {
    Bitmap bitmap;
    EXPECT_EQ(Decode(c.file.Bytes(), bitmap), "") << c.what;
    EXPECT_EQ(bitmap.bits_per_pixel, c.bits) << c.what;
    EXPECT_EQ(bitmap.pixels, c.pixels) << c.what;
    EXPECT_EQ(bitmap.alpha, c.alpha) << c.what;
  }
}

TEST(PngDecoder, GraysAndPalettesAreTheFiles) {
  Bitmap bitmap;
  ASSERT_EQ(Decode(PngFile{.depth = 1, .rows = {0}}.Bytes(), bitmap), "");
  EXPECT_EQ(PaletteOf(bitmap, 2), (std::vector<std::uint32_t>{0, 0xFFFFFF}));
  ASSERT_EQ(Decode(PngFile{.depth = 2, .rows = {0}}.Bytes(), bitmap), "");
  EXPECT_EQ(PaletteOf(bitmap, 5), (std::vector<std::uint32_t>{0, 0x555555, 0xAAAAAA, 0xFFFFFF, 0}));
  ASSERT_EQ(Decode(PngFile{.colors = 4, .rows = {7, 1}}.Bytes(), bitmap), "");
  EXPECT_EQ(PaletteOf(bitmap, 256)[7], 0x070707U);
  const PngFile indexed{.depth = 4, .colors = 3, .palette = {1, 2, 3, 4, 5, 6}, .rows = {0xF0}};
  ASSERT_EQ(Decode(indexed.Bytes(), bitmap), "") << "an index beyond the palette is black";
  EXPECT_EQ(PaletteOf(bitmap, 3), (std::vector<std::uint32_t>{0x010203, 0x040506, 0}));
}

TEST(PngDecoder, AnInterlacedFileIsTheSamePicture) {
  for (const int colors : {0, 2, 3, 4, 6}) {
    for (const int depth : {1, 2, 8, 16}) {
      if ((colors == 3 && depth == 16) || (colors != 0 && colors != 3 && depth < 8)) continue;
      PngFile file{.width = 11, .height = 10, .depth = depth, .colors = colors};
      if (colors == 3) file.palette = Bytes(std::size_t{3} << depth, 7);
      if (colors == 3) file.transparent = std::string(std::size_t{1} << depth, '\x40');
      const int samples = colors == 2 ? 3 : colors == 4 ? 2 : colors == 6 ? 4 : 1;
      const int row = (11 * samples * depth + 7) / 8;
      const int unused = row * 8 - 11 * samples * depth;
      for (int i = 0; i < 10 * row; ++i) {
        const bool last = i % row == row - 1;
        file.rows.push_back(static_cast<std::uint8_t>((i * 37 + 11) << (last ? unused : 0)));
      }
      Bitmap plain;
      Bitmap interlaced;
      ASSERT_EQ(Decode(file.Bytes(), plain), "") << colors << ' ' << depth;
      file.interlaced = true;
      ASSERT_EQ(Decode(file.Bytes(), interlaced), "") << colors << ' ' << depth;
      EXPECT_EQ(interlaced.pixels, plain.pixels) << colors << ' ' << depth;
      EXPECT_EQ(interlaced.alpha, plain.alpha) << colors << ' ' << depth;
      EXPECT_EQ(plain.alpha.empty(), colors == 0 || colors == 2);
    }
  }
}

TEST(PngDecoder, RefusesWhatIsNotAWholePictureAndSaysWhy) {
  const PngFile plain{.width = 2, .colors = 6, .rows = {1, 2, 3, 4, 5, 6, 7, 8}};
  const std::string damaged = "the PNG file is damaged";
  const std::string cut_off = "the pixel data is cut off";
  std::string checksum = plain.Bytes();
  checksum[checksum.size() - 13] ^= 1;  // of the pixel data
  std::string header_checksum = plain.Bytes();
  header_checksum[32] ^= 1;
  PngFile no_palette{.colors = 3, .rows = {0}};
  PngFile too_few = plain;
  too_few.height = 2;
  struct Case {
    const char* what;
    std::string file;
    std::string reason;
  };
  const Case cases[] = {
      {"a signature alone", "\x89PNG\r\n\x1A\n", "the PNG file's header is cut off"},
      {"a depth without its colors", PngFile{.depth = 4, .colors = 2, .rows = {0, 0}}.Bytes(),
       damaged},
      {"unknown colors", PngFile{.colors = 5, .rows = {0}}.Bytes(), damaged},
      {"another chunk first",
       std::string("\x89PNG\r\n\x1A\n") + PngFile::Chunk("IDAT", std::string(30, '\0')), damaged},
      {"a wrong checksum", checksum, damaged},
      {"a wrong checksum of the header", header_checksum, damaged},
      {"no palette", no_palette.Bytes(), damaged},
      {"fewer rows than it says", too_few.Bytes(), cut_off},
      {"no pixels", PngFile{.width = 0}.Bytes(), "the picture has no pixels"},
      {"too wide", PngFile{.width = 32768}.Bytes(),
       "the picture has more than 32,767 pixels a side"},
      {"too high", PngFile{.height = 0xFFFFFFFF}.Bytes(),
       "the picture has more than 32,767 pixels a side"},
      {"too large", PngFile{.width = 32767, .height = 32767, .colors = 6}.Bytes(),
       "decoding its 32,767 x 32,767 pixels takes 4,294,705,156 bytes, but the limit is "
       "2,147,483,647 bytes"},
      {"a few bytes for a gigabyte", PngFile{.width = 32767, .height = 32767, .rows = {0}}.Bytes(),
       cut_off},
  };
  for (const Case& c : cases) {
    Bitmap bitmap;
    EXPECT_EQ(Decode(c.file, bitmap), c.reason) << c.what;
    EXPECT_TRUE(bitmap.pixels.empty() && bitmap.alpha.empty() && bitmap.width == 0) << c.what;
  }
  Bitmap bitmap;
  EXPECT_EQ(Decode(plain.Bytes(), bitmap, 7),
            "decoding its 2 x 1 pixels takes 8 bytes, but the limit is 7 bytes")
      << "alpha counts too";
  EXPECT_EQ(Decode(plain.Bytes(), bitmap, 8), "");
  for (const std::size_t field : {26U, 27U, 28U}) {  // compression, filters, interlacing
    std::string unknown = plain.Bytes();
    unknown[field] = 2;
    EXPECT_EQ(Decode(unknown, bitmap, 1), damaged) << "before anything is made of it: " << field;
  }
}

TEST(PngDecoder, EveryPrefixIsRefusedAndASurplusIsNot) {
  PngFile plain{.width = 5, .height = 5, .interlaced = true};
  for (int i = 0; i < 25; ++i) plain.rows.push_back(static_cast<std::uint8_t>(i));
  const std::string file = plain.Bytes();
  Bitmap bitmap;
  for (std::size_t size = 0; size < file.size(); ++size) {
    EXPECT_NE(Decode(file.substr(0, size), bitmap), "") << size;
  }
  EXPECT_EQ(Decode(file + "surplus", bitmap), "");
}

TEST(PngDecoder, WhatOnlyDescribesThePictureIsNotLookedAt) {
  PngFile file{.rows = {9}};
  // A profile and a text that are nothing of the kind, and a chunk that nobody knows.
  file.more = PngFile::Chunk("iCCP", "x") + PngFile::Chunk("zTXt", std::string("k\0\0bad", 6)) +
              PngFile::Chunk("quUx", "?");
  Bitmap bitmap;
  EXPECT_EQ(Decode(file.Bytes(), bitmap), "");
  EXPECT_EQ(bitmap.pixels, (Bytes{9, 0, 0, 0}));
  file.more = PngFile::Chunk("QUUX", "?");
  EXPECT_EQ(Decode(file.Bytes(), bitmap), "the PNG file is damaged")
      << "one that readers must know";
}

TEST(PngDecoder, CountsTheBitsOfTheBitmapThatItMakes) {
  using platform::PngHeader;
  const auto bits = [](int depth, PngHeader::Colors colors, bool transparent) {
    PngHeader header;
    header.depth = depth;
    header.colors = colors;
    header.has_transparency = transparent;
    return header.BitmapBits();
  };
  EXPECT_EQ(bits(1, PngHeader::Gray, false), 1);
  EXPECT_EQ(bits(2, PngHeader::Gray, false), 4);
  EXPECT_EQ(bits(16, PngHeader::Gray, false), 8);
  EXPECT_EQ(bits(1, PngHeader::Indexed, true), 16);
  EXPECT_EQ(bits(8, PngHeader::GrayAlpha, true), 16);
  EXPECT_EQ(bits(8, PngHeader::True, false), 24);
  EXPECT_EQ(bits(16, PngHeader::TrueAlpha, true), 32);
}

}  // namespace
}  // namespace vellumark::tests
