// SPDX-License-Identifier: MIT
#include "platform/bmp_decoder.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/bmp_header.h"
#include "platform/bmp_runs.h"
#include "platform/picture_limits.h"

namespace vellumark::platform {
namespace {

void TakePalette(std::span<const std::uint8_t> file, const BmpHeader& header, Bitmap& bitmap) {
  const LittleEndianBytes bytes(file);
  for (std::size_t i = 0; i < header.palette_count; ++i) {
    const std::size_t at = header.palette_at + i * header.palette_entry_size;
    const std::uint32_t entry = bytes.At32(at);
    bitmap.palette[i] = {static_cast<std::uint8_t>(entry), static_cast<std::uint8_t>(entry >> 8),
                         static_cast<std::uint8_t>(entry >> 16), 0};
  }
}

/// Takes the bits of one mask out of a pixel and brings them to another number of bits.
class Channel {
 public:
  Channel(std::uint32_t mask, int bits)
      : mask_(mask),
        shift_(mask == 0 ? 0 : std::countr_zero(mask)),
        surplus_(std::max(0, std::popcount(mask) - bits)),
        greatest_((std::uint64_t{1} << std::popcount(mask)) - 1),
        wanted_greatest_((1U << bits) - 1) {}

  [[nodiscard]] std::uint32_t Of(std::uint32_t pixel) const {
    const std::uint32_t value = (pixel & mask_) >> shift_;
    if (surplus_ > 0) return value >> surplus_;
    if (greatest_ == wanted_greatest_ || greatest_ == 0) return value;
    return static_cast<std::uint32_t>((value * std::uint64_t{wanted_greatest_} + greatest_ / 2) /
                                      greatest_);
  }

 private:
  std::uint32_t mask_;
  int shift_;
  int surplus_;             // bits more than wanted: the lowest are dropped
  std::uint64_t greatest_;  // the value of a full channel
  std::uint32_t wanted_greatest_;
};

/// Brings the pixels to 5-5-5 at 16 bits, and to 8-8-8-8 at 32, where a missing alpha is 0.
void UnifyBitFields(const BmpHeader& header, Bitmap& bitmap) {
  const bool deep = header.bits == 32;
  const int bits = deep ? 8 : 5;
  const Channel channels[] = {{header.masks[0], bits},
                              {header.masks[1], bits},
                              {header.masks[2], bits},
                              {deep ? header.masks[3] : 0, bits}};
  const std::size_t pixel_size = deep ? 4 : 2;
  const LittleEndianBytes pixels(bitmap.pixels);
  for (std::int64_t y = 0; y < header.height; ++y) {
    const std::size_t row = static_cast<std::size_t>(y) * bitmap.RowSize();
    for (std::size_t x = 0; x < static_cast<std::size_t>(header.width); ++x) {
      const std::size_t at = row + x * pixel_size;
      const std::uint32_t pixel = deep ? pixels.At32(at) : pixels.At16(at);
      std::uint32_t unified = 0;
      for (int i = 0; i < 4; ++i) unified |= channels[i].Of(pixel) << (i * bits);
      for (std::size_t i = 0; i < pixel_size; ++i) {
        bitmap.pixels[at + i] = static_cast<std::uint8_t>(unified >> (8 * i));
      }
    }
  }
}

/// Stored rows are already in the bitmap's layout, in one of two orders.
void TakeRows(std::span<const std::uint8_t> rows, bool top_down, Bitmap& bitmap) {
  if (!top_down) {
    bitmap.pixels.assign(rows.begin(), rows.end());
    return;
  }
  const std::size_t row_size = bitmap.RowSize();
  bitmap.pixels.resize(rows.size());
  for (std::size_t from = 0, to = rows.size(); to != 0; from += row_size) {
    to -= row_size;
    std::memcpy(bitmap.pixels.data() + to, rows.data() + from, row_size);
  }
}

}  // namespace

std::string_view DecodeBmp(std::span<const std::uint8_t> file, std::int64_t greatest,
                           Bitmap& bitmap) {
  BmpHeader header;
  const std::string_view unreadable = ReadBmpHeader(file, header);
  if (!unreadable.empty()) return unreadable;
  const std::string_view too_large = CheckSize(header.width, header.height, header.bits, greatest);
  if (!too_large.empty()) return too_large;
  if (header.pixels_at > file.size()) return kCutOff;
  const auto data = file.subspan(header.pixels_at);

  if (header.pixels == BmpPixels::Rle8 || header.pixels == BmpPixels::Rle4) {
    AllocatePixels(header.width, header.height, header.bits, bitmap);
    TakePalette(file, header, bitmap);
    return ExpandRuns(data, bitmap) ? std::string_view() : kCutOff;
  }
  SetFormat(header.width, header.height, header.bits, bitmap);
  const std::size_t size = bitmap.RowSize() * static_cast<std::size_t>(header.height);
  if (data.size() < size) return kCutOff;
  TakePalette(file, header, bitmap);
  TakeRows(data.first(size), header.top_down, bitmap);
  if (header.pixels == BmpPixels::BitFields) UnifyBitFields(header, bitmap);
  return {};
}

}  // namespace vellumark::platform
