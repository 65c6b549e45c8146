// SPDX-License-Identifier: MIT
#include "platform/windows_png.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <objbase.h>
#include <wincodec.h>
#include <windows.h>

#include "platform/picture_format.h"
#include "platform/png_header.h"
#include "platform/png_pixels.h"
#include "platform/windows_component.h"

namespace vellumark::platform {
namespace {

/// The component runtime on this thread, for as long as this object exists. A thread that has it
/// already keeps it as it is.
class ComponentRuntime {
 public:
  ComponentRuntime() : begun_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
  ComponentRuntime(const ComponentRuntime&) = delete;
  ComponentRuntime& operator=(const ComponentRuntime&) = delete;
  ComponentRuntime(ComponentRuntime&&) = delete;
  ComponentRuntime& operator=(ComponentRuntime&&) = delete;
  ~ComponentRuntime() {
    if (begun_) CoUninitialize();
  }

 private:
  bool begun_;
};

/// What `make` stores, or null if it fails.
template <class Interface, class Make>
ComponentPointer<Interface> Made(const Make& make) {
  Interface* object = nullptr;
  const HRESULT result = make(&object);
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  return ComponentPointer<Interface>(SUCCEEDED(result) ? object : nullptr);
}

ComponentPointer<IWICImagingFactory> NewFactory() {
  return Made<IWICImagingFactory>([](IWICImagingFactory** factory) {
    return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                            IID_IWICImagingFactory, reinterpret_cast<void**>(factory));
  });
}

/// The file's picture; null if the component does not take it. The bytes must outlive it.
ComponentPointer<IWICBitmapFrameDecode> OpenFrame(IWICImagingFactory& factory,
                                                  std::span<const std::uint8_t> file) {
  const auto stream =
      Made<IWICStream>([&](IWICStream** made) { return factory.CreateStream(made); });
  auto* const bytes = const_cast<BYTE*>(file.data());  // which the stream only reads
  if (stream == nullptr ||
      FAILED(stream->InitializeFromMemory(bytes, static_cast<DWORD>(file.size())))) {
    return nullptr;
  }
  const auto decoder = Made<IWICBitmapDecoder>([&](IWICBitmapDecoder** made) {
    return factory.CreateDecoder(GUID_ContainerFormatPng, nullptr, made);
  });
  if (decoder == nullptr ||
      FAILED(decoder->Initialize(stream.get(), WICDecodeMetadataCacheOnDemand))) {
    return nullptr;
  }
  return Made<IWICBitmapFrameDecode>(
      [&](IWICBitmapFrameDecode** made) { return decoder->GetFrame(0, made); });
}

/// Whether the pixels come as they are in the file: gray or indexed, opaque, at its own depth.
bool IsOwnDepth(const PngHeader& header, const WICPixelFormatGUID& format) {
  const WICPixelFormatGUID* const grays[] = {
      &GUID_WICPixelFormatBlackWhite, &GUID_WICPixelFormat2bppGray, &GUID_WICPixelFormat4bppGray,
      &GUID_WICPixelFormat8bppGray};
  const WICPixelFormatGUID* const indexed[] = {
      &GUID_WICPixelFormat1bppIndexed, &GUID_WICPixelFormat2bppIndexed,
      &GUID_WICPixelFormat4bppIndexed, &GUID_WICPixelFormat8bppIndexed};
  const bool has_palette = header.colors == PngHeader::Indexed;
  if (header.has_transparency || header.depth > 8) return false;
  if (!has_palette && header.colors != PngHeader::Gray) return false;
  const std::size_t place = header.depth == 1   ? 0
                            : header.depth == 2 ? 1
                            : header.depth == 4 ? 2
                                                : 3;
  return IsEqualGUID(format, has_palette ? *indexed[place] : *grays[place]) != 0;
}

ComponentPointer<IWICBitmapSource> Converted(IWICImagingFactory& factory, IWICBitmapSource& source,
                                             const WICPixelFormatGUID& format) {
  auto converter = Made<IWICFormatConverter>(
      [&](IWICFormatConverter** made) { return factory.CreateFormatConverter(made); });
  if (converter == nullptr ||
      FAILED(converter->Initialize(&source, format, WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom))) {
    return nullptr;
  }
  return ComponentPointer<IWICBitmapSource>(converter.release());
}

/// Copies the rows to their places, from the bottom upwards.
bool CopyRows(IWICBitmapSource& source, std::size_t stride, Bitmap& bitmap) {
  const auto height = static_cast<std::size_t>(bitmap.height);
  bitmap.pixels.resize(stride * height);
  const HRESULT copied =
      source.CopyPixels(nullptr, static_cast<UINT>(stride), static_cast<UINT>(bitmap.pixels.size()),
                        bitmap.pixels.data());
  if (copied == E_OUTOFMEMORY) throw std::bad_alloc();
  for (std::size_t y = 0; y < height / 2; ++y) {
    std::uint8_t* const low = bitmap.pixels.data() + y * stride;
    std::swap_ranges(low, low + stride, bitmap.pixels.data() + (height - 1 - y) * stride);
  }
  return SUCCEEDED(copied);
}

bool TakePalette(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame, Bitmap& bitmap) {
  const auto palette =
      Made<IWICPalette>([&](IWICPalette** made) { return factory.CreatePalette(made); });
  std::array<WICColor, 256> colors{};
  UINT count = 0;
  if (palette == nullptr || FAILED(frame.CopyPalette(palette.get())) ||
      FAILED(palette->GetColors(static_cast<UINT>(colors.size()), colors.data(), &count))) {
    return false;
  }
  for (std::size_t i = 0; i < std::min<std::size_t>(count, bitmap.palette.size()); ++i) {
    bitmap.palette[i] = {static_cast<std::uint8_t>(colors[i]),
                         static_cast<std::uint8_t>(colors[i] >> 8U),
                         static_cast<std::uint8_t>(colors[i] >> 16U), 0};
  }
  return true;
}

bool TakeOwnDepth(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame,
                  const PngHeader& header, Bitmap& bitmap) {
  SetFormat(header.width, header.height, header.BitmapBits(), bitmap);
  const std::size_t stride = bitmap.RowSize();
  if (!CopyRows(frame, stride, bitmap)) return false;
  if (header.depth == 2) WidenTwoBits(stride, bitmap);
  if (header.colors == PngHeader::Indexed) return TakePalette(factory, frame, bitmap);
  TakeGrays(std::size_t{1} << header.depth, bitmap);
  return true;
}

bool TakeConverted(IWICImagingFactory& factory, IWICBitmapFrameDecode& frame,
                   const PngHeader& header, Bitmap& bitmap) {
  const ComponentPointer<IWICBitmapSource> source =
      Converted(factory, frame, GUID_WICPixelFormat32bppBGRA);
  SetFormat(header.width, header.height, 24, bitmap);
  const std::size_t stride = 4 * static_cast<std::size_t>(header.width);
  if (source == nullptr || !CopyRows(*source, stride, bitmap)) return false;
  SeparateAlpha(stride, bitmap);
  return true;
}

std::string Load(std::span<const std::uint8_t> file, const PngHeader& header, Bitmap& bitmap) {
  const ComponentRuntime runtime;
  const ComponentPointer<IWICImagingFactory> factory = NewFactory();
  if (factory == nullptr) return "the system has no imaging component";
  const ComponentPointer<IWICBitmapFrameDecode> frame = OpenFrame(*factory, file);
  WICPixelFormatGUID format{};
  UINT width = 0;
  UINT height = 0;
  if (frame == nullptr || FAILED(frame->GetPixelFormat(&format)) ||
      FAILED(frame->GetSize(&width, &height)) || width != header.width || height != header.height) {
    return kDamagedPng;
  }
  const bool taken = IsOwnDepth(header, format) ? TakeOwnDepth(*factory, *frame, header, bitmap)
                                                : TakeConverted(*factory, *frame, header, bitmap);
  return taken ? "" : kDamagedPng;
}

}  // namespace

std::string LoadWindowsPng(std::span<const std::uint8_t> file, std::int64_t greatest,
                           Bitmap& bitmap) {
  bitmap = {};
  PngHeader header;
  std::string why_not = ReadPngHeader(file, greatest, header);
  // Whatever does not come at its own depth comes with four bytes a pixel.
  if (why_not.empty() && (header.has_transparency || header.BitmapBits() > 8)) {
    why_not = CheckSize(header.width, header.height, 32, greatest);
  }
  if (!why_not.empty()) return why_not;
  why_not = Load(file, header, bitmap);
  if (!why_not.empty()) bitmap = {};
  return why_not;
}

}  // namespace vellumark::platform
