// SPDX-License-Identifier: MIT
#include "platform/windows_picture.h"

#include <cstring>
#include <memory>
#include <new>
#include <olectl.h>
#include <windows.h>

#include "platform/picture_kind.h"
#include "platform/windows_bitmap.h"

namespace vellumark::platform {
namespace {

struct Release {
  void operator()(IUnknown* object) const { object->Release(); }
};
struct FreeMemory {
  void operator()(void* memory) const { GlobalFree(memory); }
};
using Stream = std::unique_ptr<IStream, Release>;
using Picture = std::unique_ptr<IPicture, Release>;

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

/// Null where the loader does not take the file.
Picture Load(IStream& stream, std::size_t size) {
  void* picture = nullptr;
  const HRESULT result =
      OleLoadPicture(&stream, static_cast<LONG>(size), TRUE, IID_IPicture, &picture);
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  return Picture(SUCCEEDED(result) ? static_cast<IPicture*>(picture) : nullptr);
}

/// The picture's bitmap, which stays the picture's; null where it holds something else.
void* BitmapOf(IPicture& picture) {
  SHORT type = PICTYPE_UNINITIALIZED;
  OLE_HANDLE handle = 0;
  if (FAILED(picture.get_Type(&type)) || type != PICTYPE_BITMAP) return nullptr;
  if (FAILED(picture.get_Handle(&handle))) return nullptr;
  // The interface gives the 32 bits that a graphics handle has in any process.
  return LongToHandle(static_cast<LONG>(handle));
}

}  // namespace

std::string_view LoadWindowsPicture(std::span<const std::uint8_t> file, Bitmap& bitmap) {
  bitmap = {};
  if (PictureKindOf(file) == PictureKind::Unknown) return kUnknownPicture;
  const Stream stream = StreamOf(file);
  const Picture picture = Load(*stream, file.size());
  if (picture == nullptr) return "the system's picture loader cannot read it";
  void* const handle = BitmapOf(*picture);
  if (handle == nullptr) return "the picture is no bitmap";
  return CopyWindowsBitmap(handle, bitmap);
}

}  // namespace vellumark::platform
