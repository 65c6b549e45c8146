// SPDX-License-Identifier: MIT
#include "platform/png_header.h"

#include <algorithm>

#include "platform/picture_format.h"

namespace vellumark::platform {
namespace {

constexpr std::size_t kSignatureSize = 8;
constexpr std::size_t kChunkFrame = 12;  // size, name and checksum
constexpr std::uint32_t kHeaderSize = 13;
constexpr std::uint64_t kMostBytesOfOne = 1032;  // 258 bytes for two bits

std::uint32_t NumberAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return std::uint32_t{bytes[at]} << 24U | std::uint32_t{bytes[at + 1]} << 16U |
         std::uint32_t{bytes[at + 2]} << 8U | bytes[at + 3];
}

constexpr std::uint32_t Name(const char (&letters)[5]) {
  std::uint32_t name = 0;
  for (int i = 0; i < 4; ++i) name = name << 8U | static_cast<std::uint8_t>(letters[i]);
  return name;
}

int SamplesOf(PngHeader::Colors colors) {
  switch (colors) {
    case PngHeader::True: return 3;
    case PngHeader::GrayAlpha: return 2;
    case PngHeader::TrueAlpha: return 4;
    default: return 1;
  }
}

bool IsDepth(PngHeader::Colors colors, int depth) {
  const bool small = depth == 1 || depth == 2 || depth == 4;
  switch (colors) {
    case PngHeader::Gray: return small || depth == 8 || depth == 16;
    case PngHeader::Indexed: return small || depth == 8;
    case PngHeader::True:
    case PngHeader::GrayAlpha:
    case PngHeader::TrueAlpha: return depth == 8 || depth == 16;
  }
  return false;
}

/// Returns false for values that the format does not have.
bool TakeHeader(std::span<const std::uint8_t> data, PngHeader& header) {
  header.width = NumberAt(data, 0);
  header.height = NumberAt(data, 4);
  header.depth = data[8];
  header.colors = static_cast<PngHeader::Colors>(data[9]);
  header.interlaced = data[12] == 1;
  header.has_transparency =
      header.colors == PngHeader::GrayAlpha || header.colors == PngHeader::TrueAlpha;
  return IsDepth(header.colors, header.depth) && data[10] == 0 && data[11] == 0 && data[12] <= 1;
}

/// Goes over the chunks behind the header up to the last one, and adds up the pixel data.
std::string ReadChunks(std::span<const std::uint8_t> left, PngHeader& header,
                       std::uint64_t& data_size) {
  while (left.size() >= kChunkFrame) {
    const std::uint32_t size = NumberAt(left, 0);
    const std::uint32_t name = NumberAt(left, 4);
    if (size > left.size() - kChunkFrame) return kCutOff;
    if (name == Name("IEND")) return {};
    if (name == Name("tRNS")) header.has_transparency = true;
    if (name == Name("IDAT")) data_size += size;
    left = left.subspan(kChunkFrame + size);
  }
  return kCutOff;
}

}  // namespace

int PngHeader::BitmapBits() const noexcept {
  const int opaque = colors == True || colors == TrueAlpha ? 24
                     : depth == 2                          ? 4
                                                           : std::min(depth, 8);
  return has_transparency ? std::max(opaque, 8) + 8 : opaque;
}

std::string ReadPngHeader(std::span<const std::uint8_t> file, std::int64_t greatest,
                          PngHeader& header) {
  constexpr std::size_t kHeaderEnd = kSignatureSize + kChunkFrame + kHeaderSize;
  if (file.size() < kHeaderEnd) return "the PNG file's header is cut off";
  const bool has_header = NumberAt(file, kSignatureSize) == kHeaderSize &&
                          NumberAt(file, kSignatureSize + 4) == Name("IHDR");
  if (!has_header || !TakeHeader(file.subspan(kSignatureSize + 8, kHeaderSize), header)) {
    return kDamagedPng;
  }
  std::uint64_t data_size = 0;
  std::string cut_off = ReadChunks(file.subspan(kHeaderEnd), header, data_size);
  std::string too_large = CheckSize(header.width, header.height, header.BitmapBits(), greatest);
  if (!too_large.empty()) return too_large;
  if (!cut_off.empty()) return cut_off;
  const auto bits = static_cast<std::uint64_t>(header.width * SamplesOf(header.colors)) *
                    static_cast<std::uint64_t>(header.depth);
  const std::uint64_t needed = (bits / 8 + 1) * static_cast<std::uint64_t>(header.height);
  return data_size * kMostBytesOfOne < needed ? kCutOff : "";
}

}  // namespace vellumark::platform
