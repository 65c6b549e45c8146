// SPDX-License-Identifier: MIT
#include <cstring>
#include <vector>
#include <windows.h>

#include "platform/windows_picture.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct SectionInfo {
  BITMAPINFOHEADER header{};
  std::uint32_t entries[256]{};  // a palette of 0xRRGGBB, or three masks
};

/// Entry `i` of the palettes here: three different numbers.
constexpr std::uint32_t Color(std::uint32_t i) { return i << 16 | (i ^ 0x0F) << 8 | (i ^ 0xF0); }

/// A DIB section as the picture loader might hand it out.
HBITMAP MakeSection(int width, int height, WORD bits, const Bytes& memory, bool masks_565) {
  SectionInfo info;
  info.header = {sizeof info.header, width, height, 1, bits, BI_RGB, 0, 0, 0, 0, 0};
  if (bits <= 8) {
    for (std::uint32_t i = 0; i < 1U << bits; ++i) info.entries[i] = Color(i);
  }
  if (masks_565) {
    info.header.biCompression = BI_BITFIELDS;
    info.entries[0] = 0xF800;
    info.entries[1] = 0x07E0;
    info.entries[2] = 0x001F;
  }
  void* pixels = nullptr;
  const HBITMAP section = CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(&info),
                                           DIB_RGB_COLORS, &pixels, nullptr, 0);
  if (section != nullptr) std::memcpy(pixels, memory.data(), memory.size());
  return section;
}

bool HasPalette(const Bitmap& bitmap) {
  if (bitmap.bits_per_pixel > 8) return bitmap.palette.empty();
  if (bitmap.palette.size() != std::size_t{1} << bitmap.bits_per_pixel) return false;
  for (std::uint32_t i = 0; i < bitmap.palette.size(); ++i) {
    const Bitmap::Color& color = bitmap.palette[i];
    const int found = color.reserved << 24 | color.red << 16 | color.green << 8 | color.blue;
    if (found != static_cast<int>(Color(i))) return false;
  }
  return true;
}

}  // namespace

void CheckBitmaps(Facts& facts) {
  struct Case {
    const char* what;
    int width;
    int height;  // negative: rows from the top
    WORD bits;
    Bytes memory;
    Bytes expected;
    bool masks_565 = false;
  };
  const Case cases[] = {
      {"1 bit", 9, 1, 1, {0xA5, 0x80, 0, 0}, {0xA5, 0x80, 0, 0}},
      {"4 bits", 3, 1, 4, {0x12, 0x30, 0, 0}, {0x12, 0x30, 0, 0}},
      {"8 bits", 1, 2, 8, {7, 0, 0, 0, 200, 0, 0, 0}, {7, 0, 0, 0, 200, 0, 0, 0}},
      {"8 bits, rows from the top",
       1,
       -2,
       8,
       {7, 0, 0, 0, 200, 0, 0, 0},
       {200, 0, 0, 0, 7, 0, 0, 0}},
      {"16 bits", 1, 1, 16, {0x34, 0x12, 0, 0}, {0x34, 0x12, 0, 0}},
      {"16 bits of 5-6-5 as 5-5-5", 1, 1, 16, {0x1F, 0xF8, 0, 0}, {0x1F, 0x7C, 0, 0}, true},
      {"24 bits, rows from the top", 1, -2, 24, {1, 2, 3, 0, 4, 5, 6, 0}, {4, 5, 6, 0, 1, 2, 3, 0}},
      {"32 bits with the fourth byte", 1, 1, 32, {1, 2, 3, 4}, {1, 2, 3, 4}},
  };
  for (const Case& c : cases) {
    const HBITMAP section = MakeSection(c.width, c.height, c.bits, c.memory, c.masks_565);
    Bitmap bitmap;
    const std::string_view why_not = platform::CopyWindowsBitmap(section, 1000, bitmap);
    facts.Check(std::string("a loaded bitmap is copied: ").append(c.what),
                why_not.empty() && bitmap.bits_per_pixel == c.bits && HasPalette(bitmap) &&
                    bitmap.pixels == c.expected,
                why_not);
    DeleteObject(section);
  }
  Bitmap bitmap;
  facts.Check("no bitmap at all is refused",
              !platform::CopyWindowsBitmap(nullptr, 1000, bitmap).empty());
}

}  // namespace vellumark::tests
