// SPDX-License-Identifier: MIT
#include "platform/windows_bitmap.h"

#include <memory>
#include <windows.h>

#include "platform/picture_limits.h"

namespace vellumark::platform {
namespace {

struct DeleteContext {
  void operator()(HDC context) const { DeleteDC(context); }
};
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

/// A BITMAPINFO with room for every palette.
struct BitmapInfo {
  BITMAPINFOHEADER header{};
  RGBQUAD palette[256]{};
};

/// The depth to copy at: the bitmap's own where its pixels are laid out as a Bitmap's.
int DepthOf(const BITMAP& description) {
  const bool device_dependent = description.bmBits == nullptr || description.bmPlanes != 1;
  switch (description.bmBitsPixel) {
    case 1:
    case 4:
    case 8:
    case 16:
    case 32: return device_dependent ? 24 : description.bmBitsPixel;
    default: return 24;
  }
}

/// Fills palette and pixels of a bitmap whose format is set.
///
/// The pixel memory itself is not read, though a DIB section has one: whether its first row is the
/// top or the bottom one, no description tells. GetDIBits knows, and copies pixels of the same
/// depth as they are, 16-bit ones as 5-5-5, with their own palette. It writes into the Bitmap,
/// which is the document's copy already: a second DIB section in between would bring nothing.
bool CopyPixels(HBITMAP handle, Bitmap& bitmap) {
  const MemoryContext context(CreateCompatibleDC(nullptr));
  if (context == nullptr) return false;
  BitmapInfo info;
  info.header.biSize = sizeof info.header;
  info.header.biWidth = bitmap.width;
  info.header.biHeight = bitmap.height;  // positive: from the bottom upwards
  info.header.biPlanes = 1;
  info.header.biBitCount = bitmap.bits_per_pixel;
  info.header.biCompression = BI_RGB;
  const int rows =
      GetDIBits(context.get(), handle, 0, static_cast<UINT>(bitmap.height), bitmap.pixels.data(),
                reinterpret_cast<BITMAPINFO*>(&info), DIB_RGB_COLORS);
  for (std::size_t i = 0; i < bitmap.palette.size(); ++i) {
    const RGBQUAD& color = info.palette[i];
    bitmap.palette[i] = {color.rgbBlue, color.rgbGreen, color.rgbRed, 0};
  }
  return rows == bitmap.height;
}

}  // namespace

std::string_view CopyWindowsBitmap(void* handle, Bitmap& bitmap) {
  bitmap = {};
  // As many bytes as the process's own BITMAP: 24 in a 32-bit one, 32 where addresses have 64 bits.
  BITMAP description{};
  if (GetObjectA(handle, sizeof description, &description) == 0) return "no bitmap came of it";
  const int bits = DepthOf(description);
  const std::string_view too_large =
      CheckSize(description.bmWidth, description.bmHeight, bits, kGreatestPicture);
  if (!too_large.empty()) return too_large;
  AllocatePixels(description.bmWidth, description.bmHeight, bits, bitmap);
  if (CopyPixels(static_cast<HBITMAP>(handle), bitmap)) return {};
  bitmap = {};
  return "the pixels of the loaded picture cannot be read";
}

}  // namespace vellumark::platform
