// SPDX-License-Identifier: MIT
#include <array>
#include <cstdlib>

#include "tests/bmp_file.h"
#include "tests/png_file.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

/// 0xRRGGBB of the pixel, counted from the top left corner; the depth is the loader's choice.
std::uint32_t ColorAt(const Bitmap& bitmap, int x, int y) {
  const std::size_t bits = bitmap.bits_per_pixel;
  const std::size_t row = static_cast<std::size_t>(bitmap.height - 1 - y) * bitmap.RowSize();
  const std::size_t bit = static_cast<std::size_t>(x) * bits;
  const std::uint8_t* const at = bitmap.pixels.data() + row + bit / 8;
  if (bits <= 8) {
    const std::size_t index = (*at >> (8 - bits - bit % 8)) & ((1U << bits) - 1);
    const Bitmap::Color& color = bitmap.palette[index];
    return static_cast<std::uint32_t>(color.red << 16 | color.green << 8 | color.blue);
  }
  if (bits == 16) {
    const int pixel = at[0] | at[1] << 8;
    return static_cast<std::uint32_t>((pixel >> 10 & 31) << 19 | (pixel >> 5 & 31) << 11 |
                                      (pixel & 31) << 3);
  }
  return static_cast<std::uint32_t>(at[2] << 16 | at[1] << 8 | at[0]);
}

bool IsNear(std::uint32_t color, std::uint32_t expected, int tolerance) {
  for (const int shift : {0, 8, 16}) {
    const int a = static_cast<int>(color >> shift & 0xFF);
    const int b = static_cast<int>(expected >> shift & 0xFF);
    if (std::abs(a - b) > tolerance) return false;
  }
  return true;
}

/// Sky, sun, near hill and the sea's left end, as another program reads them from each file.
void CheckSamples(Facts& facts, const std::string& pictures) {
  struct Sample {
    const char* file;
    int tolerance;
    std::array<std::uint32_t, 4> colors;
  };
  constexpr std::array<std::array<int, 2>, 4> kPlaces = {{{0, 0}, {64, 28}, {93, 61}, {3, 40}}};
  const Sample samples[] = {
      {"landscape_1.bmp", 0, {0x281E46, 0xFFECC8, 0x281E46, 0x281E46}},
      {"landscape_4.bmp", 0, {0x664C93, 0xEACF9C, 0x123322, 0x3D4C83}},
      {"landscape_8.bmp", 0, {0x5A4696, 0xFFF0BE, 0x123622, 0x3C4782}},
      {"landscape_16.bmp", 7, {0x5A4194, 0xFFF6BD, 0x103120, 0x394183}},
      {"landscape_24.bmp", 0, {0x5A4696, 0xFFF0BE, 0x123622, 0x3C4782}},
      {"landscape_32.bmp", 0, {0x5A4696, 0xFFF0BE, 0x123622, 0x3C4782}},
      {"landscape.gif", 0, {0x5A4696, 0xFFF0BE, 0x123622, 0x3C4782}},
      {"landscape_interlaced.gif", 0, {0x744D93, 0xEACF9C, 0x123322, 0x44487C}},
      {"landscape.jpg", 12, {0x5B4695, 0xFFF0C0, 0x123328, 0x3F417A}},
      {"landscape_progressive.jpg", 12, {0x5B4695, 0xFFF0C0, 0x123328, 0x3F417A}},
      {"landscape.png", 0, {0x5A4696, 0xFFF0BE, 0x123622, 0x3C4782}},
      {"landscape_alpha.png", 0, {0x5A4696, 0xFFF0BE, 0x123622, 0x3C4782}},
      {"landscape_gray.jpg", 12, {0x555555, 0xF0F0F0, 0x282828, 0x474747}},
  };
  QuietPlatform platform;
  for (const Sample& sample : samples) {
    Bitmap bitmap;
    std::string reason;
    const bool decoded = platform.DecodePicture(pictures + "/" + sample.file, bitmap, reason);
    facts.Check(std::string(sample.file).append(" has its size"),
                decoded && bitmap.width == 94 && bitmap.height == 62, reason);
    bool alike = decoded;
    for (std::size_t i = 0; alike && i < kPlaces.size(); ++i) {
      alike =
          IsNear(ColorAt(bitmap, kPlaces[i][0], kPlaces[i][1]), sample.colors[i], sample.tolerance);
    }
    facts.Check(std::string(sample.file).append(" has its colors"), alike);
  }
}

void CheckRefused(Facts& facts, const std::string& what, const std::string& name,
                  std::string_view expected = {}) {
  QuietPlatform platform;
  Bitmap bitmap;
  bitmap.width = 7;
  std::string reason;
  const bool decoded = platform.DecodePicture(name, bitmap, reason);
  const bool empty = bitmap.width == 0 && bitmap.pixels.empty();
  const bool explained = !reason.empty() && reason.find_last_of(".\r\n ") != reason.size() - 1 &&
                         (expected.empty() || reason == expected);
  facts.Check(std::string("not a picture: ").append(what).append(" (").append(reason).append(")"),
              !decoded && empty && explained);
}

void CheckHostile(Facts& facts, const std::string& pictures) {
  const TemporaryFile file("picture");
  CheckRefused(facts, "a missing file", file.Name());
  CheckRefused(facts, "a folder", pictures);
  CheckRefused(facts, "a name with a NUL",
               std::string(pictures).append("/landscape.gif").append(1, '\0').append("x"));
  CheckRefused(facts, "a device", "NUL", "not a regular file");
  const std::pair<const char*, std::string> hostile[] = {
      {"an empty file", ""},
      {"an icon", std::string("\0\0\1\0\1\0", 6)},
      {"a metafile", "\xD7\xCD\xC6\x9A"},
      {"another format", "\x89PNQ\r\n\x1A\n"},
  };
  for (const auto& [what, bytes] : hostile) {
    file.Put(bytes);
    CheckRefused(facts, what, file.Name(), "not a BMP, GIF, JPG or PNG file");
  }
  const std::pair<const char*, std::string> broken[] = {
      {"a BMP of two bytes", "BM"},
      {"a GIF of a header only", "GIF89a\x5E"},
      {"a JPG of a mark only", "\xFF\xD8\xFF"},
      {"a PNG without its palette", PngFile{.colors = 3, .rows = {0}}.Bytes()},
  };
  for (const auto& [what, bytes] : broken) {
    file.Put(bytes);
    CheckRefused(facts, what, file.Name());
  }
  const std::string png = PngFile{.width = 2, .colors = 2, .rows = {1, 2, 3, 4, 5, 6}}.Bytes();
  const std::pair<std::string, const char*> pngs[] = {
      {png.substr(0, 20), "the PNG file's header is cut off"},
      {png.substr(0, png.size() - 1), "the pixel data is cut off"},
      {PngFile{.width = 32767, .height = 32767, .rows = {0}}.Bytes(), "the pixel data is cut off"},
      {PngFile{.width = 32768}.Bytes(), "the picture has more than 32,767 pixels a side"}};
  for (const auto& [bytes, reason] : pngs) {
    file.Put(bytes);
    CheckRefused(facts, "a PNG that is not whole", file.Name(), reason);
  }
  file.Put(PlainBmp(32768, 1));
  CheckRefused(facts, "a BMP too wide", file.Name(),
               "the picture has more than 32,767 pixels a side");
}

/// Color types and depths of PNG files: the bitmap's bits, and the last pixel's color and opacity.
void CheckPng(Facts& facts) {
  struct Case {
    const char* what;
    PngFile file;
    int bits;
    std::uint32_t color;
    int alpha = 255;
  };
  const Case cases[] = {
      {"gray, 1 bit", {.width = 2, .depth = 1, .rows = {0x40}}, 1, 0xFFFFFF},
      {"gray, 2 bits, interlaced",
       {.width = 5, .depth = 2, .interlaced = true, .rows = {0x1B, 0x80}},
       4,
       0xAAAAAA},
      {"gray, 4 bits", {.width = 3, .depth = 4, .rows = {0x12, 0x30}}, 4, 0x333333},
      {"gray, 8 bits", {.width = 2, .rows = {1, 0x77}}, 8, 0x777777},
      {"gray, 16 bits", {.depth = 16, .rows = {0x77, 0x77}}, 24, 0x777777},
      {"true color, 16 bits",
       {.depth = 16, .colors = 2, .rows = {0x11, 0x11, 0x22, 0x22, 0x33, 0x33}},
       24,
       0x112233},
      {"indexed, 1 bit",
       {.width = 2, .depth = 1, .colors = 3, .palette = {1, 2, 3, 4, 5, 6}, .rows = {0x40}},
       1,
       0x040506},
      {"indexed, 2 bits",
       {.width = 3, .depth = 2, .colors = 3, .palette = {1, 2, 3, 4, 5, 6}, .rows = {0x04}},
       4,
       0x040506},
      {"indexed, with transparency",
       {.width = 2,
        .depth = 4,
        .colors = 3,
        .palette = {1, 2, 3, 4, 5, 6},
        .transparent = "\xFF\x80",
        .rows = {0x01}},
       24,
       0x040506,
       0x80},
      {"gray and alpha", {.colors = 4, .rows = {0x55, 0x40}}, 24, 0x555555, 0x40},
      {"true color and alpha, interlaced",
       {.width = 2, .colors = 6, .interlaced = true, .rows = {9, 9, 9, 9, 1, 2, 3, 4}},
       24,
       0x010203,
       4},
      {"true color and alpha, 16 bits",
       {.depth = 16, .colors = 6, .rows = {0x11, 0x11, 0x22, 0x22, 0x33, 0x33, 0x44, 0x44}},
       24,
       0x112233,
       0x44},
      {"alpha that is opaque", {.colors = 6, .rows = {1, 2, 3, 255}}, 24, 0x010203},
  };
  QuietPlatform platform;
  for (const Case& c : cases) {
    const std::string file = c.file.Bytes();
    Bitmap bitmap;
    std::string reason;
    const bool decoded = platform.DecodePictureBytes(
        {reinterpret_cast<const std::uint8_t*>(file.data()), file.size()}, bitmap, reason);
    const bool right = decoded && bitmap.bits_per_pixel == c.bits &&
                       ColorAt(bitmap, bitmap.width - 1, 0) == c.color &&
                       (c.alpha == 255 ? bitmap.alpha.empty() : bitmap.alpha.back() == c.alpha);
    facts.Check(std::string("PNG, ").append(c.what), right, reason);
  }
}

/// The other ways to a picture: its file's bytes, and a picture out of bytes.
void CheckBytes(Facts& facts, const std::string& pictures) {
  const std::string name = pictures + "/landscape_24.bmp";
  QuietPlatform platform;
  std::vector<std::uint8_t> bytes;
  std::string reason;
  const bool read = platform.ReadPicture(name, bytes, reason);
  facts.Check("a file's bytes are read as they are",
              read && bytes.size() == std::filesystem::file_size(name) && bytes[0] == 'B', reason);
  Bitmap from_file;
  Bitmap from_bytes;
  const bool decoded = platform.DecodePicture(name, from_file, reason) &&
                       platform.DecodePictureBytes(bytes, from_bytes, reason);
  facts.Check("a picture comes out of memory as out of its file",
              decoded && from_bytes.pixels == from_file.pixels, reason);
  platform.SetGreatestPicture(1000);
  facts.Check("the greatest picture holds for memory and files",
              !platform.DecodePictureBytes(bytes, from_bytes, reason) &&
                  !platform.DecodePicture(name, from_file, reason) &&
                  reason.ends_with(" bytes, but the limit is 1,000 bytes") && from_bytes.width == 0,
              reason);
  facts.Check("a missing file has no bytes",
              !platform.ReadPicture(name + ".no", bytes, reason) && bytes.empty(), reason);
}

}  // namespace

void CheckPictures(Facts& facts, const std::string& pictures) {
  CheckSamples(facts, pictures);
  CheckPng(facts);
  CheckHostile(facts, pictures);
  CheckBytes(facts, pictures);
}

}  // namespace vellumark::tests
