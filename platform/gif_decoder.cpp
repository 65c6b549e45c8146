// SPDX-License-Identifier: MIT
//
// The first frame of a GIF file on its logical screen, 8 bits with 256 colors.
//
// The frame is clipped to the screen; the screen around it shows the background's index. Colors
// come from the frame's own table or the file's, those beyond the table are black, and transparency
// is ignored. The file is read record by record up to the end of that frame and no further.

#include <algorithm>
#include <cstring>
#include <gif_lib.h>
#include <memory>
#include <new>
#include <vector>

#include "platform/loaded_library.h"
#include "platform/picture_decoder.h"
#include "platform/picture_format.h"

namespace vellumark::platform {
namespace {

#define VELLUMARK_GIF_FUNCTIONS(X, Table) \
  X(Table, DGifCloseFile)                 \
  X(Table, DGifGetExtension)              \
  X(Table, DGifGetExtensionNext)          \
  X(Table, DGifGetImageDesc)              \
  X(Table, DGifGetLine)                   \
  X(Table, DGifGetRecordType)             \
  X(Table, DGifOpen)
VELLUMARK_LOADED_LIBRARY(GifLibrary, VELLUMARK_SONAME_GIF, VELLUMARK_GIF_FUNCTIONS)

/// A code of 12 bits stands for at most 4,096 pixels.
constexpr std::uint64_t kMostPixelsOfCodeByte = 2731;

/// The part of the file that the GIF library has yet to read.
struct Source {
  std::span<const std::uint8_t> left;

  static int Read(GifFileType* gif, GifByteType* to, int size) {
    auto& source = *static_cast<Source*>(gif->UserData);
    const std::size_t count = std::min(source.left.size(), static_cast<std::size_t>(size));
    if (count != 0) std::memcpy(to, source.left.data(), count);
    source.left = source.left.subspan(count);
    return static_cast<int>(count);
  }
};

struct Close {
  void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};
using GifFile = std::unique_ptr<GifFileType, Close>;

void RequireMemory(int error) {
  if (error == D_GIF_ERR_NOT_ENOUGH_MEM) throw std::bad_alloc();
}

bool SkipExtension(GifFileType* gif) {
  int code = 0;
  GifByteType* block = nullptr;
  if (DGifGetExtension(gif, &code, &block) != GIF_OK) return false;
  while (block != nullptr) {
    if (DGifGetExtensionNext(gif, &block) != GIF_OK) return false;
  }
  return true;
}

/// Reads up to the description of the first frame.
bool FindFrame(GifFileType* gif) {
  for (;;) {
    GifRecordType record = UNDEFINED_RECORD_TYPE;
    if (DGifGetRecordType(gif, &record) != GIF_OK) return false;
    if (record == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(gif) == GIF_OK;
    if (record != EXTENSION_RECORD_TYPE || !SkipExtension(gif)) return false;
  }
}

void TakePalette(const GifFileType& gif, Bitmap& bitmap) {
  const ColorMapObject* const table =
      gif.Image.ColorMap != nullptr ? gif.Image.ColorMap : gif.SColorMap;
  if (table == nullptr) return;
  const std::size_t count =
      std::min(bitmap.palette.size(), static_cast<std::size_t>(table->ColorCount));
  for (std::size_t i = 0; i < count; ++i) {
    const GifColorType& color = table->Colors[i];
    bitmap.palette[i] = {.blue = color.Blue, .green = color.Green, .red = color.Red};
  }
}

/// Puts row `y` of the frame at its place on the screen.
void TakeRow(const GifImageDesc& frame, const std::vector<GifPixelType>& row, int y,
             Bitmap& bitmap) {
  const int screen_y = frame.Top + y;
  if (screen_y >= bitmap.height || frame.Left >= bitmap.width) return;
  const auto count = static_cast<std::size_t>(std::min(frame.Width, bitmap.width - frame.Left));
  const auto from_bottom = static_cast<std::size_t>(bitmap.height - 1 - screen_y);
  std::memcpy(bitmap.pixels.data() + from_bottom * bitmap.RowSize() + frame.Left, row.data(),
              count);
}

bool ReadRows(GifFileType* gif, Bitmap& bitmap) {
  struct Pass {
    int first;
    int step;
  };
  static constexpr Pass kInterlaced[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
  static constexpr Pass kPlain[] = {{0, 1}};
  const GifImageDesc& frame = gif->Image;
  const std::span<const Pass> passes =
      frame.Interlace ? std::span<const Pass>(kInterlaced) : std::span<const Pass>(kPlain);

  std::vector<GifPixelType> row(static_cast<std::size_t>(frame.Width));
  for (const Pass& pass : passes) {
    for (int y = pass.first; y < frame.Height; y += pass.step) {
      if (DGifGetLine(gif, row.data(), frame.Width) != GIF_OK) return false;
      TakeRow(frame, row, y, bitmap);
    }
  }
  return true;
}

}  // namespace

std::string DecodeGif(std::span<const std::uint8_t> file, std::int64_t greatest, Bitmap& bitmap) {
  if (std::string missing = GifLibrary::Load(); !missing.empty()) return missing;
  Source source{file};
  int error = D_GIF_SUCCEEDED;
  const GifFile gif(DGifOpen(&source, Source::Read, &error));
  if (gif == nullptr || !FindFrame(gif.get())) {
    RequireMemory(gif != nullptr ? gif->Error : error);
    return "the GIF file is damaged or has no picture";
  }
  std::string why_not = CheckSize(gif->SWidth, gif->SHeight, 8, greatest);
  if (why_not.empty()) why_not = CheckSize(gif->Image.Width, gif->Image.Height, 8, greatest);
  if (why_not.empty()) {
    why_not =
        CheckClaim(gif->SWidth, gif->SHeight, file.size() * kMostPixelsOfCodeByte, file.size());
  }
  if (!why_not.empty()) return why_not;
  const auto frame = std::uint64_t{static_cast<unsigned>(gif->Image.Width)} *
                     static_cast<unsigned>(gif->Image.Height);
  if (frame > source.left.size() * kMostPixelsOfCodeByte) return kCutOff;

  AllocatePixels(gif->SWidth, gif->SHeight, 8, bitmap);
  std::fill(bitmap.pixels.begin(), bitmap.pixels.end(),
            static_cast<std::uint8_t>(gif->SBackGroundColor));
  TakePalette(*gif, bitmap);
  if (ReadRows(gif.get(), bitmap)) return {};
  RequireMemory(gif->Error);
  return kCutOff;
}

}  // namespace vellumark::platform
