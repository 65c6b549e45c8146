// SPDX-License-Identifier: MIT
#include "platform/windows_picture.h"

#include <cstring>
#include <memory>
#include <new>
#include <windows.h>
#include <olectl.h>

#include "platform/picture_format.h"
#include "platform/windows_component.h"
#include "platform/windows_png.h"

namespace vellumark::platform {
namespace {

struct FreeMemory {
  void operator()(void* memory) const { GlobalFree(memory); }
};
using Stream = ComponentPointer<IStream>;
using Picture = ComponentPointer<IPicture>;

/// A stream over a copy of the bytes, which it frees with itself.
Stream StreamOf(std::span<const std::uint8_t> bytes) {
  std::unique_ptr<void, FreeMemory> memory(GlobalAlloc(GMEM_MOVEABLE, bytes.size()));
  void* const copy = memory != nullptr ? GlobalLock(memory.get()) : nullptr;
  if (copy == nullptr) throw std::bad_alloc();
  std::memcpy(copy, bytes.data(), bytes.size());
  GlobalUnlock(memory.get());
  IStream* stream = nullptr;
  if (FAILED(CreateStreamOnHGlobal(memory.get(), TRUE, &stream))) throw std::bad_alloc();
  static_cast<void>(memory.release());
  return Stream(stream);
}

/// Null if the loader does not take the file.
Picture Load(IStream& stream, std::size_t size) {
  void* picture = nullptr;
  const HRESULT result =
      OleLoadPicture(&stream, static_cast<LONG>(size), TRUE, IID_IPicture, &picture);
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  return Picture(SUCCEEDED(result) ? static_cast<IPicture*>(picture) : nullptr);
}

/// The picture's bitmap, which the picture goes on owning; null if it holds something else.
void* BitmapOf(IPicture& picture) {
  SHORT type = PICTYPE_UNINITIALIZED;
  OLE_HANDLE handle = 0;
  if (FAILED(picture.get_Type(&type)) || type != PICTYPE_BITMAP) return nullptr;
  if (FAILED(picture.get_Handle(&handle))) return nullptr;
  // The interface gives the 32 bits that a graphics handle has in any process.
  return LongToHandle(static_cast<LONG>(handle));
}

struct DeleteContext {
  void operator()(HDC context) const { DeleteDC(context); }
};
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteContext>;

/// A BITMAPINFO with room for every palette.
struct BitmapInfo {
  BITMAPINFOHEADER header{};
  RGBQUAD palette[256]{};
};

/// The depth to copy at: the bitmap's own if its pixels are laid out as a Bitmap's.
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
/// The pixel memory itself is not read, though a DIB section has one: no description tells whether
/// its first row is the top or the bottom one. GetDIBits knows, and copies pixels of the same depth
/// as they are, 16-bit ones as 5-5-5, with their own palette.
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

std::string LoadWindowsPicture(std::span<const std::uint8_t> file, std::int64_t greatest,
                               Bitmap& bitmap) {
  bitmap = {};
  if (file.size() > static_cast<std::uint64_t>(kGreatestFile)) return kLargerThan2Gb;
  switch (PictureKindOf(file)) {
    case PictureKind::Unknown: return kUnknownPicture;
    case PictureKind::Png: return LoadWindowsPng(file, greatest, bitmap);
    default: break;
  }
  const Stream stream = StreamOf(file);
  const Picture picture = Load(*stream, file.size());
  if (picture == nullptr) return "the system's picture loader cannot read it";
  void* const handle = BitmapOf(*picture);
  if (handle == nullptr) return "the picture is not a bitmap";
  return CopyWindowsBitmap(handle, greatest, bitmap);
}

std::string CopyWindowsBitmap(void* handle, std::int64_t greatest, Bitmap& bitmap) {
  bitmap = {};
  // As many bytes as the process's own BITMAP: 24 with addresses of 32 bits, 32 with 64.
  BITMAP description{};
  if (GetObjectA(handle, sizeof description, &description) == 0)
    return "the system's picture loader made no bitmap of it";
  const int bits = DepthOf(description);
  std::string too_large = CheckSize(description.bmWidth, description.bmHeight, bits, greatest);
  if (!too_large.empty()) return too_large;
  AllocatePixels(description.bmWidth, description.bmHeight, bits, bitmap);
  if (CopyPixels(static_cast<HBITMAP>(handle), bitmap)) return {};
  bitmap = {};
  return "the pixels of the loaded picture cannot be read";
}

}  // namespace vellumark::platform
