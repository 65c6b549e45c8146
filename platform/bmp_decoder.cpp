// SPDX-License-Identifier: MIT
//
// A BMP file at its own depth.
//
//     file    = "BM" file-size:4 0:4 pixels-at:4 header [masks] palette ... pixels
//     header  = core | info                        numbers are little-endian
//     core    = 12:4 width:2 height:2 planes:2 bits:2
//     info    = size:4 width:4 height:4 planes:2 bits:2 compression:4 image-size:4
//               resolution:8 colors-used:4 colors-important:4 rest
//                                                  size 40, 52, 56, 64, 108 or 124; a negative
//                                                  height means rows from the top
//     masks   = red:4 green:4 blue:4 [alpha:4]     if bit fields are used, at byte 54: behind a
//                                                  header of 40 bytes, inside a longer one
//     palette = (blue green red [0]) *             without the 0 behind a core header
//     pixels  = rows, uncompressed | bmp_runs.h
//
// Bit fields are brought to 5-5-5 at 16 bits and to 8-8-8-8 at 32. Palette entries that the file
// does not have are black; color profiles are ignored.
#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "platform/bmp_runs.h"
#include "platform/picture_decoder.h"
#include "platform/picture_format.h"

namespace vellumark::platform {
namespace {

constexpr std::size_t kHeaderAt = 14;
constexpr std::uint32_t kCoreSize = 12;
constexpr std::uint32_t kInfoSize = 40;
constexpr std::uint32_t kForeignInfoSize = 64;       // its compressions mean something else
constexpr std::uint64_t kMostPixelsOfRunByte = 128;  // of runs: 255 pixels in two
constexpr std::size_t kMasksAt = kHeaderAt + kInfoSize;

/// The numbers that "compression" carries.
enum Compression : std::uint32_t {
  Plain = 0,
  Rle8 = 1,
  Rle4 = 2,
  BitFields = 3,
  AlphaBitFields = 6
};

constexpr const char* kUnknownKind = "this kind of BMP file is not known";

/// The bytes of a file as little-endian numbers; bytes behind its end are 0.
class LittleEndianBytes {
 public:
  explicit LittleEndianBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  [[nodiscard]] std::uint32_t At8(std::size_t at) const {
    return at < bytes_.size() ? bytes_[at] : 0;
  }
  [[nodiscard]] std::uint32_t At16(std::size_t at) const { return At8(at) | At8(at + 1) << 8; }
  [[nodiscard]] std::uint32_t At32(std::size_t at) const { return At16(at) | At16(at + 2) << 16; }

 private:
  std::span<const std::uint8_t> bytes_;
};

enum class BmpPixels { Plain, Rle8, Rle4, BitFields };

struct BmpHeader {
  std::int64_t width = 0;
  std::int64_t height = 0;
  bool top_down = false;
  int bits = 0;
  BmpPixels pixels = BmpPixels::Plain;
  std::array<std::uint32_t, 4> masks{};  ///< blue, green, red, alpha; for BitFields
  std::size_t palette_at = 0;
  std::size_t palette_entry_size = 4;
  std::size_t palette_count = 0;  ///< entries in the file, at most 2^bits
  std::size_t pixels_at = 0;
};

bool IsInfoSize(std::uint32_t size) {
  constexpr std::uint32_t kSizes[] = {kInfoSize, 52, 56, kForeignInfoSize, 108, 124};
  return std::find(std::begin(kSizes), std::end(kSizes), size) != std::end(kSizes);
}

bool IsDepth(int bits) {
  constexpr int kDepths[] = {1, 4, 8, 16, 24, 32};
  return std::find(std::begin(kDepths), std::end(kDepths), bits) != std::end(kDepths);
}

/// One run of set bits, or none.
bool IsContiguous(std::uint32_t mask) {
  const std::uint32_t filled = mask | (mask - 1);
  return mask == 0 || (filled & (filled + 1)) == 0;
}

void TakeSize(const LittleEndianBytes& file, std::uint32_t size, BmpHeader& header) {
  if (size == kCoreSize) {
    header.width = file.At16(18);
    header.height = file.At16(20);
    header.bits = static_cast<int>(file.At16(24));
    header.palette_entry_size = 3;
    return;
  }
  header.width = static_cast<std::int32_t>(file.At32(18));
  header.height = static_cast<std::int32_t>(file.At32(22));
  header.bits = static_cast<int>(file.At16(28));
  header.top_down = header.height < 0;
  if (header.top_down) header.height = -header.height;
}

/// Returns false for a compression that does not go with the rest of the header.
bool TakeCompression(std::uint32_t compression, std::uint32_t size, BmpHeader& header) {
  const bool foreign = size == kForeignInfoSize;
  switch (compression) {
    case Compression::Plain: header.pixels = BmpPixels::Plain; return true;
    case Compression::Rle8:
      header.pixels = BmpPixels::Rle8;
      return header.bits == 8 && !header.top_down;
    case Compression::Rle4:
      header.pixels = BmpPixels::Rle4;
      return header.bits == 4 && !header.top_down;
    case Compression::BitFields:
    case Compression::AlphaBitFields:
      header.pixels = BmpPixels::BitFields;
      return (header.bits == 16 || header.bits == 32) && !foreign;
    default: return false;
  }
}

/// Returns where the masks end; without any, the end of the header.
std::size_t TakeMasks(const LittleEndianBytes& file, std::uint32_t compression, std::uint32_t size,
                      BmpHeader& header) {
  const std::size_t header_end = kHeaderAt + size;
  if (header.pixels != BmpPixels::BitFields) return header_end;
  for (std::size_t i = 0; i < 3; ++i) header.masks[2 - i] = file.At32(kMasksAt + 4 * i);
  const bool has_alpha = size >= 56 || compression == Compression::AlphaBitFields;
  if (has_alpha) header.masks[3] = file.At32(kMasksAt + 12);
  return std::max(header_end, kMasksAt + (has_alpha ? 16 : 12));
}

/// The palette ends where the pixels begin, even if the header promises more entries.
void PlacePalette(const LittleEndianBytes& file, std::uint32_t size, BmpHeader& header) {
  const std::size_t most = header.bits <= 8 ? std::size_t{1} << header.bits : 0;
  const std::uint32_t used = size >= kInfoSize ? file.At32(46) : 0;
  header.palette_count = used == 0 ? most : std::min<std::size_t>(used, most);
  header.pixels_at = file.At32(10);
  if (header.pixels_at < header.palette_at) {  // unknown: right behind the palette
    header.pixels_at = header.palette_at + header.palette_count * header.palette_entry_size;
  }
  header.palette_count = std::min(
      header.palette_count, (header.pixels_at - header.palette_at) / header.palette_entry_size);
}

/// Fills `header` and returns an empty text, or why the file cannot be read.
std::string ReadBmpHeader(std::span<const std::uint8_t> file, BmpHeader& header) {
  const LittleEndianBytes numbers(file);
  const std::uint32_t size = numbers.At32(kHeaderAt);
  if (file.size() < kHeaderAt + 4 || file.size() - kHeaderAt < size) {
    return "the BMP file's header is cut off";
  }
  if (size != kCoreSize && !IsInfoSize(size)) return kUnknownKind;
  TakeSize(numbers, size, header);
  const std::uint32_t compression = size == kCoreSize ? Compression::Plain : numbers.At32(30);
  if (!IsDepth(header.bits) || !TakeCompression(compression, size, header)) return kUnknownKind;
  header.palette_at = TakeMasks(numbers, compression, size, header);
  PlacePalette(numbers, size, header);
  if (!std::all_of(header.masks.begin(), header.masks.end(), IsContiguous)) return kUnknownKind;
  return {};
}

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
      : greatest_((std::uint64_t{1} << std::popcount(mask)) - 1),
        mask_(mask),
        wanted_greatest_((1U << bits) - 1),
        shift_(mask == 0 ? 0 : std::countr_zero(mask)),
        surplus_(std::max(0, std::popcount(mask) - bits)) {}

  [[nodiscard]] std::uint32_t Of(std::uint32_t pixel) const {
    const std::uint32_t value = (pixel & mask_) >> shift_;
    if (surplus_ > 0) return value >> surplus_;
    if (greatest_ == wanted_greatest_ || greatest_ == 0) return value;
    return static_cast<std::uint32_t>((value * std::uint64_t{wanted_greatest_} + greatest_ / 2) /
                                      greatest_);
  }

 private:
  std::uint64_t greatest_;  // the value of a full channel
  std::uint32_t mask_;
  std::uint32_t wanted_greatest_;
  int shift_;
  int surplus_;  // bits more than wanted: the lowest are dropped
};

/// Brings the pixels to 5-5-5 at 16 bits, and to 8-8-8-8 at 32, with a missing alpha as 0.
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

/// Stored rows are already in the bitmap's layout, in one of two orders. Those in the bitmap's
/// order stay in the memory of the file if the caller gives it away.
void TakeRows(std::span<const std::uint8_t> rows, bool top_down,
              std::vector<std::uint8_t>* own_file, Bitmap& bitmap) {
  if (!top_down && own_file != nullptr) {
    const auto end = own_file->begin() + (rows.data() + rows.size() - own_file->data());
    own_file->erase(end, own_file->end());
    own_file->erase(own_file->begin(), end - static_cast<std::ptrdiff_t>(rows.size()));
    bitmap.pixels = std::move(*own_file);
    return;
  }
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

std::string DecodeBmp(std::span<const std::uint8_t> file, std::int64_t greatest, Bitmap& bitmap,
                      std::vector<std::uint8_t>* own_file) {
  BmpHeader header;
  std::string unreadable = ReadBmpHeader(file, header);
  if (!unreadable.empty()) return unreadable;
  std::string too_large = CheckSize(header.width, header.height, header.bits, greatest);
  if (!too_large.empty()) return too_large;
  if (header.pixels_at > file.size()) return kCutOff;
  const auto data = file.subspan(header.pixels_at);

  if (header.pixels == BmpPixels::Rle8 || header.pixels == BmpPixels::Rle4) {
    // What is passed over is not in the file, but no picture of this size is passed over.
    std::string too_much =
        CheckClaim(header.width, header.height, data.size() * kMostPixelsOfRunByte, file.size());
    if (!too_much.empty()) return too_much;
    AllocatePixels(header.width, header.height, header.bits, bitmap);
    TakePalette(file, header, bitmap);
    return ExpandRuns(data, bitmap) ? "" : kCutOff;
  }
  SetFormat(header.width, header.height, header.bits, bitmap);
  const std::size_t size = bitmap.RowSize() * static_cast<std::size_t>(header.height);
  if (data.size() < size) return kCutOff;
  TakePalette(file, header, bitmap);
  TakeRows(data.first(size), header.top_down, own_file, bitmap);
  if (header.pixels == BmpPixels::BitFields) UnifyBitFields(header, bitmap);
  return {};
}

}  // namespace vellumark::platform
