// SPDX-License-Identifier: MIT
#include "platform/picture_decoder.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

#include "platform/picture_format.h"
#include "tests/bmp_file.h"
#include "tests/platform/decoded_picture.h"
#include "tests/sample_picture.h"

namespace vellumark::tests {
namespace {

using namespace std::string_view_literals;

using Bytes = std::vector<std::uint8_t>;

std::vector<std::uint32_t> PaletteOf(const Bitmap& bitmap) {
  std::vector<std::uint32_t> colors;
  for (const Bitmap::Color& color : bitmap.palette) {
    colors.push_back(static_cast<std::uint32_t>(color.red << 16 | color.green << 8 | color.blue));
  }
  return colors;
}

TEST(BmpDecoder, EveryDepthAndOrderKeepsItsPixels) {
  struct Case {
    const char* what;
    BmpFile file;
    Bytes expected;
  };
  const Case cases[] = {
      {"1 bit", {.width = 9, .bits = 1, .pixels = {0xA5, 0x80, 0, 0}}, {0xA5, 0x80, 0, 0}},
      {"4 bits", {.width = 3, .bits = 4, .pixels = {0x12, 0x30, 0, 0}}, {0x12, 0x30, 0, 0}},
      {"core header",
       {.width = 1, .height = 2, .bits = 8, .header_size = 12, .pixels = {7, 0, 0, 0, 8, 0, 0, 0}},
       {7, 0, 0, 0, 8, 0, 0, 0}},
      {"rows from the top",
       {.width = 1, .height = -2, .bits = 24, .pixels = {1, 2, 3, 0, 4, 5, 6, 0}},
       {4, 5, 6, 0, 1, 2, 3, 0}},
      {"version 5 header, 32 bits",
       {.bits = 32, .header_size = 124, .pixels = {1, 2, 3, 4}},
       {1, 2, 3, 4}},
      {"5-6-5 becomes 5-5-5",
       {.bits = 16,
        .compression = 3,
        .masks = {0xF800, 0x07E0, 0x001F},
        .pixels = {0xFF, 0xFF, 0, 0}},
       {0xFF, 0x7F, 0, 0}},
      {"4-4-4 is stretched to 5-5-5",
       {.bits = 16,
        .compression = 3,
        .masks = {0x0F00, 0x00F0, 0x000F},
        .pixels = {0x80, 0x0F, 0, 0}},
       {0x20, 0x7E, 0, 0}},
      {"red first becomes blue first, without alpha",
       {.bits = 32, .compression = 3, .masks = {0xFF, 0xFF00, 0xFF0000}, .pixels = {1, 2, 3, 4}},
       {3, 2, 1, 0}},
      {"the same with alpha, by its compression",
       {.bits = 32,
        .compression = 6,
        .masks = {0xFF, 0xFF00, 0xFF0000, 0xFF000000},
        .pixels = {1, 2, 3, 4}},
       {3, 2, 1, 4}},
      {"masks in a header of 52 bytes",
       {.bits = 32,
        .compression = 3,
        .header_size = 52,
        .masks = {0xFF, 0xFF00, 0xFF0000},
        .pixels = {1, 2, 3, 4}},
       {3, 2, 1, 0}},
      {"ten bits a color, and alpha",
       {.bits = 32,
        .compression = 3,
        .header_size = 56,
        .masks = {0x3FF00000, 0xFFC00, 0x3FF, 0xC0000000},
        .pixels = {0xFF, 0x03, 0x08, 0x80}},
       {0xFF, 0x80, 0, 0xAA}},
      {"RLE8: runs, a literal, a move, rows",
       {.width = 4,
        .height = 3,
        .bits = 8,
        .compression = 1,
        .pixels = {2, 7, 0, 3, 1, 2, 3, 0, 0, 0, 0, 2, 1, 1, 9, 5, 0, 1}},
       {7, 7, 1, 2, 0, 0, 0, 0, 0, 5, 5, 5}},
      {"RLE4: a literal without its pad at the end",
       {.width = 5, .height = 1, .bits = 4, .compression = 2, .pixels = {0, 5, 0x12, 0x34, 0x50}},
       {0x12, 0x34, 0x50, 0}},
      {"RLE4: a run in turns, a literal of odd length",
       {.width = 7,
        .height = 1,
        .bits = 4,
        .compression = 2,
        .pixels = {3, 0xAB, 0, 3, 0x12, 0x30, 0, 1}},
       {0xAB, 0xA1, 0x23, 0}},
      {"RLE4: a run goes on behind the pad of a literal",
       {.width = 7,
        .bits = 4,
        .compression = 2,
        .pixels = {0, 5, 0x12, 0x34, 0x50, 0x99, 2, 0x67, 0, 1}},
       {0x12, 0x34, 0x56, 0x70}},
      {"RLE4: what is longer than its row is cut",
       {.width = 3,
        .height = 2,
        .bits = 4,
        .compression = 2,
        .pixels = {0, 5, 0x12, 0x34, 0x50, 0, 0, 0, 5, 0x67, 0, 1}},
       {0x12, 0x30, 0, 0, 0x67, 0x60, 0, 0}},
      {"RLE8: a move behind the last row ends it",
       {.width = 2, .bits = 8, .compression = 1, .pixels = {1, 9, 0, 2, 0, 1}},
       {9, 0, 0, 0}},
  };
  for (const Case& c : cases) {
    Bitmap bitmap;
    EXPECT_EQ(Decode(c.file.Bytes(), bitmap), "") << c.what;
    EXPECT_EQ(bitmap.bits_per_pixel, c.file.bits) << c.what;
    EXPECT_EQ(bitmap.pixels, c.expected) << c.what;
  }
}

TEST(BmpDecoder, PaletteEntriesThatAreMissingAreBlack) {
  Bitmap bitmap;
  const Bytes pixels(4, 0x11);
  EXPECT_EQ(
      Decode(BmpFile{.bits = 4, .palette = {0x112233, 0x445566}, .pixels = pixels}.Bytes(), bitmap),
      "")
      << "the pixels begin where the palette ends, whatever the header promises";
  std::vector<std::uint32_t> expected(16, 0);
  expected[0] = 0x112233;
  expected[1] = 0x445566;
  EXPECT_EQ(PaletteOf(bitmap), expected);
  const BmpFile core{
      .bits = 1, .header_size = 12, .palette = {0x112233, 0x445566}, .pixels = pixels};
  EXPECT_EQ(Decode(core.Bytes(), bitmap), "");
  EXPECT_EQ(PaletteOf(bitmap), (std::vector<std::uint32_t>{0x112233, 0x445566}));
  const BmpFile many{.bits = 1, .palette = {1, 2, 3}, .colors_used = 0xFFFFFFFF, .pixels = pixels};
  EXPECT_EQ(Decode(many.Bytes(), bitmap), "");
  EXPECT_EQ(PaletteOf(bitmap), (std::vector<std::uint32_t>{1, 2}));
}

TEST(PictureDecoder, RefusesWhatIsNotAWholePictureAndSaysWhy) {
  std::string header_alone = PlainBmp(4, 4).substr(0, 40);
  std::string cut = PlainBmp(4, 4);
  cut.pop_back();
  struct Case {
    std::string file;
    std::string reason;
  };
  const std::string unknown = "this kind of BMP file is not known";
  const std::string cut_off = "the pixel data is cut off";
  const Case cases[] = {
      {"", "not a BMP, GIF, JPG or PNG file"},
      {"\x89PNG\r\n\x1A", "not a BMP, GIF, JPG or PNG file"},
      {header_alone, "the BMP file's header is cut off"},
      {cut, cut_off},
      {BmpFile{.bits = 2, .pixels = Bytes(4)}.Bytes(), unknown},
      {BmpFile{.bits = 8, .compression = 4, .pixels = Bytes(4)}.Bytes(), unknown},
      {BmpFile{.height = -1, .bits = 8, .compression = 1, .pixels = {0, 1}}.Bytes(), unknown},
      {BmpFile{.bits = 16, .compression = 3, .masks = {0x0F0F, 0xF0, 0}, .pixels = Bytes(4)}
           .Bytes(),
       unknown},
      {BmpFile{.width = 0}.Bytes(), "the picture has no pixels"},
      {BmpFile{.width = 32768}.Bytes(), "the picture has more than 32,767 pixels a side"},
      {BmpFile{.height = -0x7FFFFFFF - 1}.Bytes(),
       "the picture has more than 32,767 pixels a side"},
      {BmpFile{.width = 32767, .height = 32767}.Bytes(),
       "decoding its 32,767 x 32,767 pixels takes 3,221,127,168 bytes, but the limit is "
       "2,147,483,647 bytes"},
      {BmpFile{.width = 30000, .height = 20000}.Bytes(), cut_off},
      {BmpFile{.width = 4, .bits = 8, .compression = 1, .pixels = {3, 1}}.Bytes(), cut_off},
      {BmpFile{.width = 4, .bits = 4, .compression = 2, .pixels = {0, 5, 0x12, 0x34}}.Bytes(),
       cut_off},
      {BmpFile{.width = 4, .bits = 8, .compression = 1, .pixels = {0, 2, 9}}.Bytes(), cut_off},
      {BmpFile{.width = 4, .bits = 8, .compression = 1, .pixels = {0, 4, 1, 2, 3}}.Bytes(),
       cut_off},
      {BmpFile{.width = 5, .bits = 4, .compression = 2, .pixels = {0, 5, 0x12, 0x34}}.Bytes(),
       cut_off},
      {BmpFile{.width = 4, .bits = 4, .compression = 2, .pixels = {0, 4, 0x12}}.Bytes(), cut_off},
      {BmpFile{.width = 4, .bits = 8, .compression = 1, .pixels = {0, 2, 1}}.Bytes(), cut_off},
      {"GIF89a", "the GIF file is damaged or has no picture"},
      {"\xFF\xD8\xFF", cut_off},
      {"\xFF\xD8\xFF\xD8", "the JPG file is damaged"},
  };
  for (const Case& c : cases) {
    Bitmap bitmap;
    EXPECT_EQ(Decode(c.file, bitmap), c.reason);
    EXPECT_TRUE(bitmap.pixels.empty() && bitmap.width == 0) << c.reason;
  }
  Bitmap bitmap;
  EXPECT_EQ(Decode(PlainBmp(10, 10), bitmap, 100),
            "decoding its 10 x 10 pixels takes 320 bytes, but the limit is 100 bytes")
      << "a host may set a lower limit";
  const std::string photo = Sample("landscape.jpg");
  ASSERT_EQ(Decode(photo, bitmap), "");
  const auto size = static_cast<std::int64_t>(bitmap.pixels.size());
  EXPECT_EQ(Decode(photo, bitmap, size), "") << "one scan keeps no coefficients";
  EXPECT_NE(Decode(photo, bitmap, size - 1), "");
  // 94 x 62 pixels in 12 x 8 blocks of luminance and 6 x 4 of each color, 128 bytes each.
  const std::int64_t coefficients = std::int64_t{128} * (12 * 8 + 2 * 6 * 4);
  const std::string progressive = Sample("landscape_progressive.jpg");
  EXPECT_EQ(Decode(progressive, bitmap, size + coefficients), "");
  EXPECT_NE(Decode(progressive, bitmap, size + coefficients - 1), "");
}

TEST(PictureDecoder, EveryPrefixOfAFileIsRefusedOrWhole) {
  for (const char* const name : {"landscape.gif", "landscape_interlaced.gif", "landscape.jpg",
                                 "landscape_progressive.jpg", "landscape_cmyk.jpg"}) {
    const std::string file = Sample(name);
    Bitmap whole;
    ASSERT_EQ(Decode(file, whole), "") << name;
    for (std::size_t size = 0; size < file.size(); size += 7) {
      Bitmap bitmap;
      if (Decode(file.substr(0, size), bitmap).empty()) {
        EXPECT_EQ(bitmap.pixels, whole.pixels) << name << " cut to " << size;
        EXPECT_GE(size, file.size() - 3) << name;
      }
    }
  }
}

/// Root of the mean squared difference of two pictures' colors, 0 to 255.
double Difference(const Bitmap& one, const Bitmap& other) {
  const auto color = [](const Bitmap& bitmap, std::size_t x, std::size_t y) -> Bitmap::Color {
    const std::uint8_t* const row = bitmap.pixels.data() + y * bitmap.RowSize();
    if (bitmap.bits_per_pixel == 8) return bitmap.palette[row[x]];
    return {row[3 * x], row[3 * x + 1], row[3 * x + 2], 0};
  };
  double sum = 0;
  for (std::size_t y = 0; y < static_cast<std::size_t>(one.height); ++y) {
    for (std::size_t x = 0; x < static_cast<std::size_t>(one.width); ++x) {
      const Bitmap::Color a = color(one, x, y);
      const Bitmap::Color b = color(other, x, y);
      sum += std::pow(a.red - b.red, 2) + std::pow(a.green - b.green, 2) +
             std::pow(a.blue - b.blue, 2);
    }
  }
  return std::sqrt(sum / (3.0 * one.width * one.height));
}

TEST(PictureDecoder, EveryFormatShowsTheSamePicture) {
  Bitmap source;
  ASSERT_EQ(Decode(Sample("landscape_24.bmp"), source), "");
  struct Case {
    const char* name;
    int bits;
    double greatest_difference;
  };
  for (const Case& c :
       {Case{"landscape_8.bmp", 8, 2}, Case{"landscape.gif", 8, 2},
        Case{"landscape_interlaced.gif", 8, 20}, Case{"landscape.jpg", 24, 12},
        Case{"landscape_progressive.jpg", 24, 12}, Case{"landscape_cmyk.jpg", 24, 6}}) {
    Bitmap bitmap;
    ASSERT_EQ(Decode(Sample(c.name), bitmap), "") << c.name;
    EXPECT_EQ(bitmap.bits_per_pixel, c.bits) << c.name;
    EXPECT_EQ(bitmap.palette.size(), c.bits == 8 ? 256U : 0U) << c.name;
    EXPECT_LT(Difference(source, bitmap), c.greatest_difference) << c.name;
  }
  Bitmap gray;
  ASSERT_EQ(Decode(Sample("landscape_gray.jpg"), gray), "");
  ASSERT_EQ(gray.bits_per_pixel, 24);
  for (std::size_t x = 0; x < 94; ++x) EXPECT_EQ(gray.pixels[3 * x], gray.pixels[3 * x + 2]);
}

TEST(PictureDecoder, TheLimitHoldsToTheByte) {
  for (const char* const name : {"landscape_8.bmp", "landscape_24.bmp", "landscape.gif",
                                 "landscape.jpg", "landscape_gray.jpg"}) {
    Bitmap bitmap;
    ASSERT_EQ(Decode(Sample(name), bitmap), "") << name;
    const auto size = static_cast<std::int64_t>(bitmap.pixels.size());
    EXPECT_EQ(Decode(Sample(name), bitmap, size), "") << name;
    EXPECT_NE(Decode(Sample(name), bitmap, size - 1), "") << name;
  }
}

TEST(PictureDecoder, WhatAFileCannotFillIsRefused) {
  EXPECT_EQ(platform::CheckClaim(4096, 4096, 0, 1), "") << "so many are believed";
  constexpr std::uint64_t kMore = std::uint64_t{4096} * 4097;
  EXPECT_EQ(platform::CheckClaim(4096, 4097, kMore, 1), "");
  EXPECT_EQ(platform::CheckClaim(4096, 4097, kMore - 1, 1234),
            "a file of 1,234 bytes cannot fill the 4,096 x 4,097 pixels that it states");
  // 8,000 x 4,000 pixels: 128 for each byte of a BMP's runs, 2,731 for each of a GIF.
  for (const std::size_t size : {249'999U, 250'000U}) {
    BmpFile runs{.width = 8000, .height = 4000, .bits = 8, .compression = 1, .pixels = {0, 1}};
    runs.pixels.resize(size);
    Bitmap bitmap;
    EXPECT_EQ(Decode(runs.Bytes(), bitmap).empty(), size == 250'000);
  }
  for (const std::size_t size : {11'717U, 11'718U}) {
    std::string gif("GIF89a\x40\x1F\xA0\x0F\0\0\0,\0\0\0\0\x02\0\x02\0\0\x02\x03\x44\x02\x05\0;",
                    30);
    gif.resize(size);
    Bitmap bitmap;
    EXPECT_EQ(Decode(gif, bitmap).empty(), size == 11'718);
    EXPECT_NE(Decode(gif, bitmap, 8000 * 4000 - 1), "");
  }
}

TEST(GifDecoder, TheFrameIsClippedToItsScreenOnTheBackground) {
  const std::string screen("GIF89a\x03\0\x02\0\x80\x01\0",
                           13);  // 3 by 2, two colors, background 1
  const std::string colors("\x10\x20\x30\x40\x50\x60", 6);
  const std::string comment("\x21\xFE\x02hi\0", 6);
  const std::string frame(",\x02\0\x01\0\x02\0\x02\0\0", 10);  // 2 by 2, at (2, 1)
  // Codes of 3 bits: clear, 0, 1, 1; then of 4: 0, end.
  const std::string pixels("\x02\x03\x44\x02\x05\0;", 7);
  Bitmap bitmap;
  ASSERT_EQ(Decode(screen + colors + comment + frame + pixels, bitmap), "");
  EXPECT_EQ(bitmap.pixels, (Bytes{1, 1, 0, 1, 1, 1, 1, 1}));
  std::vector<std::uint32_t> expected(256, 0);
  expected[0] = 0x102030;
  expected[1] = 0x405060;
  EXPECT_EQ(PaletteOf(bitmap), expected);
}

TEST(GifDecoder, WithoutAnyColorTableEverythingIsBlack) {
  const std::string screen("GIF89a\x02\0\x02\0\0\0\0", 13);
  const std::string frame(",\0\0\0\0\x02\0\x02\0\0", 10);
  Bitmap bitmap;
  ASSERT_EQ(Decode(screen + frame + std::string("\x02\x03\x44\x02\x05\0;", 7), bitmap), "");
  EXPECT_EQ(bitmap.pixels, (Bytes{1, 0, 0, 0, 0, 1, 0, 0}));
  EXPECT_EQ(PaletteOf(bitmap), std::vector<std::uint32_t>(256, 0));
}

TEST(GifDecoder, AFileThatEndsOrClaimsTooMuchIsRefused) {
  const std::string screen("GIF89a\x03\0\x02\0\x80\x01\0", 13);
  const std::string colors("\x10\x20\x30\x40\x50\x60", 6);
  Bitmap bitmap;
  for (const std::string_view rest :
       {""sv, "!"sv, "!\xFE\x02h"sv, "!\xFE\x01h\x05"sv, ",\x02"sv, ";"sv, "?"sv}) {
    std::string file = screen + colors;
    file += rest;
    EXPECT_EQ(Decode(file, bitmap), "the GIF file is damaged or has no picture") << rest;
  }
  std::string wide = screen;
  wide.replace(6, 4, "\xFF\x7F\xFF\x7F");
  const std::string frame(",\0\0\0\0\x02\0\x02\0\0\x02\x01\x05", 13);
  EXPECT_NE(Decode(wide + colors + frame, bitmap)
                .find("cannot fill the 32,767 x 32,767 pixels that it states"),
            std::string::npos);
}

TEST(JpegDecoder, FourInksWithoutAMarkerAreNotComplements) {
  std::string file = Sample("landscape_cmyk.jpg");
  Bitmap marked;
  ASSERT_EQ(Decode(file, marked), "");
  const std::size_t marker = file.find("\xFF\xEE");
  ASSERT_NE(marker, std::string::npos);
  file.erase(marker, 2 + static_cast<std::size_t>(file[marker + 3]));
  Bitmap bitmap;
  ASSERT_EQ(Decode(file, bitmap), "");
  ASSERT_EQ(bitmap.pixels.size(), marked.pixels.size());
  // Little ink as complements is much as it is: nearly all becomes dark.
  const auto light = [](const Bitmap& picture) {
    std::size_t sum = 0;
    for (const std::uint8_t part : picture.pixels) sum += part;
    return sum;
  };
  EXPECT_LT(light(bitmap), light(marked) / 4);
}

/// A gray JPG of so many pixels a side, at most 65,535, up to its first scan. Its codes have one
/// bit: no difference to the block before, and the end of a block, or of a run of 16,384 blocks.
std::string GrayJpg(char kind, int side) {
  const auto segment = [](char mark, const std::string& content) {
    return std::string("\xFF") + mark + '\0' + static_cast<char>(content.size() + 2) + content;
  };
  const char high = static_cast<char>(side / 256);
  const char low = static_cast<char>(side % 256);
  const std::string one_code = '\x01' + std::string(15, '\0');
  const char end = kind == '\xC2' ? '\xE0' : '\0';
  return "\xFF\xD8" + segment('\xDB', '\0' + std::string(64, '\x01')) +
         segment(kind, {8, high, low, high, low, 1, 1, 0x11, 0}) +
         segment('\xC4', '\0' + one_code + '\0' + '\x10' + one_code + end);
}

/// A scan of the coefficients from `first` to `last`.
std::string JpgScan(char first, char last, const std::string& bits) {
  return std::string("\xFF\xDA\0\x08\x01\x01\0", 7) + first + last + '\0' + bits;
}

constexpr char kEndOfJpg[] = "\xFF\xD9";

TEST(JpegDecoder, APlainPictureMayBeSmall) {
  const std::string file = GrayJpg('\xC0', 1024);
  const std::size_t blocks = std::size_t{128} * 128;
  Bitmap bitmap;
  const std::string bits(blocks * 2 / 8, '\0');
  EXPECT_EQ(Decode(file + JpgScan(0, 63, bits) + kEndOfJpg, bitmap), "");
  EXPECT_EQ(std::count(bitmap.pixels.begin(), bitmap.pixels.end(), 128), 3 * 1024 * 1024);
  EXPECT_EQ(Decode(file + JpgScan(0, 63, bits.substr(200)) + kEndOfJpg, bitmap),
            "the pixel data is cut off");
  EXPECT_NE(Decode(GrayJpg('\xC9', 20000) + JpgScan(0, 63, bits) + kEndOfJpg, bitmap)
                .find("cannot fill the 20,000 x 20,000 pixels that it states"),
            std::string::npos)
      << "arithmetic coding";
}

TEST(JpegDecoder, ManyScansOverALargePictureAreRefused) {
  // 65,536 blocks: 2^22 are free, and 16 for each.
  const std::string file = GrayJpg('\xC2', 2048) + JpgScan(0, 0, std::string(65536 / 8, '\0'));
  // Four times the code and 14 bits for the length of the run, and ones up to the next byte.
  const std::string again = JpgScan(1, 63, std::string(7, '\0') + '\x0F');
  const auto with_scans = [&](int count) {
    std::string whole = file;
    for (int scan = 1; scan < count; ++scan) whole += again;
    return whole + kEndOfJpg;
  };
  Bitmap bitmap;
  EXPECT_EQ(Decode(with_scans(80), bitmap), "");
  EXPECT_EQ(Decode(with_scans(81), bitmap),
            "the scans of the JPG file go over the picture more than 16 times");
}

TEST(JpegDecoder, AHoleOrAScanTooManyRefusesThePicture) {
  const std::string file = Sample("landscape_progressive.jpg");
  const std::size_t scan = file.find("\xFF\xDA");
  const std::size_t scan_end = file.find("\xFF\xC4", scan);
  int scans = 0;
  for (std::size_t at = scan; at != std::string::npos; at = file.find("\xFF\xDA", at + 1)) ++scans;
  std::string many = file;
  Bitmap bitmap;
  for (; scans < 100; ++scans) many.insert(scan_end, file, scan, scan_end - scan);
  EXPECT_EQ(Decode(many, bitmap), "");
  many.insert(scan_end, file, scan, scan_end - scan);
  EXPECT_EQ(Decode(many, bitmap), "the JPG file has more than 100 scans");

  std::string hole = Sample("landscape.jpg");
  hole.erase(hole.size() / 2, hole.size() / 4);
  EXPECT_EQ(Decode(hole, bitmap), "the pixel data is cut off");
  EXPECT_EQ(Decode(Sample("landscape.jpg") + "surplus", bitmap), "");
}

TEST(JpegDecoder, MemoryShortageIsNotTheFilesFault) {
  std::string tall = Sample("landscape_progressive.jpg");
  tall[tall.find("\xFF\xC2") + 5] = 1;  // 256 rows more than it has
  Bitmap bitmap;
  EXPECT_EQ(Decode(tall, bitmap), "the pixel data is cut off");
  ::setenv("JPEGMEM", "1", 1);  // the JPEG library has to manage with a thousand bytes
  EXPECT_THROW(Decode(tall, bitmap), std::bad_alloc);
  ::unsetenv("JPEGMEM");
}

}  // namespace
}  // namespace vellumark::tests
