// SPDX-License-Identifier: MIT
#include "platform/bmp_header.h"

#include <algorithm>

namespace vellumark::platform {
namespace {

constexpr std::size_t kHeaderAt = 14;
constexpr std::uint32_t kCoreSize = 12;
constexpr std::uint32_t kInfoSize = 40;
constexpr std::uint32_t kForeignInfoSize = 64;  // its compressions mean something else
constexpr std::size_t kMasksAt = kHeaderAt + kInfoSize;

/// The numbers that "compression" carries.
enum : std::uint32_t { kPlain = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3, kAlphaBitFields = 6 };

constexpr std::string_view kUnknownKind = "this kind of BMP file is not known";

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

/// False for a compression that does not go with the rest of the header.
bool TakeCompression(std::uint32_t compression, std::uint32_t size, BmpHeader& header) {
  const bool foreign = size == kForeignInfoSize;
  switch (compression) {
    case kPlain: header.pixels = BmpPixels::Plain; return true;
    case kRle8: header.pixels = BmpPixels::Rle8; return header.bits == 8 && !header.top_down;
    case kRle4: header.pixels = BmpPixels::Rle4; return header.bits == 4 && !header.top_down;
    case kBitFields:
    case kAlphaBitFields:
      header.pixels = BmpPixels::BitFields;
      return (header.bits == 16 || header.bits == 32) && !foreign;
    default: return false;
  }
}

/// Answers where the masks end, if there are any behind the header.
std::size_t TakeMasks(const LittleEndianBytes& file, std::uint32_t compression, std::uint32_t size,
                      BmpHeader& header) {
  const std::size_t header_end = kHeaderAt + size;
  if (header.pixels != BmpPixels::BitFields) return header_end;
  for (std::size_t i = 0; i < 3; ++i) header.masks[2 - i] = file.At32(kMasksAt + 4 * i);
  const bool has_alpha = size >= 56 || compression == kAlphaBitFields;
  if (has_alpha) header.masks[3] = file.At32(kMasksAt + 12);
  return std::max(header_end, kMasksAt + (has_alpha ? 16 : 12));
}

/// The palette ends where the pixels begin, however many entries the header promises.
void TakePalette(const LittleEndianBytes& file, std::uint32_t size, BmpHeader& header) {
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

}  // namespace

std::string_view ReadBmpHeader(std::span<const std::uint8_t> bytes, BmpHeader& header) {
  const LittleEndianBytes file(bytes);
  const std::uint32_t size = file.At32(kHeaderAt);
  if (bytes.size() < kHeaderAt + 4 || bytes.size() - kHeaderAt < size) {
    return "the BMP file's header is cut off";
  }
  if (size != kCoreSize && !IsInfoSize(size)) return kUnknownKind;
  TakeSize(file, size, header);
  const std::uint32_t compression = size == kCoreSize ? kPlain : file.At32(30);
  if (!IsDepth(header.bits) || !TakeCompression(compression, size, header)) return kUnknownKind;
  header.palette_at = TakeMasks(file, compression, size, header);
  TakePalette(file, size, header);
  if (!std::all_of(header.masks.begin(), header.masks.end(), IsContiguous)) return kUnknownKind;
  return {};
}

}  // namespace vellumark::platform
