// SPDX-License-Identifier: MIT
//
// ReadPngHeader: what a PNG file says of itself, and whether it is whole, before anything is
// decoded or allocated.
//
//     PngHeader header;
//     const std::string why_not = ReadPngHeader(bytes, greatest, header);
//     if (!why_not.empty()) ...                      // "the pixel data is cut off"
//
//     file  = 89 50 4E 47 0D 0A 1A 0A chunk*         numbers are big-endian
//     chunk = size:4 name:4 data checksum:4
//     IHDR  = width:4 height:4 depth:1 colors:1 0:1 0:1 interlaced:1
//
// The chunks have to follow each other up to IEND inside the file; what comes behind it is surplus.
// Data of a few bytes can stand for any number of pixels, but not for more than 1,032 bytes a byte:
// a file that states a size beyond that lacks pixels.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vellumark::platform {

struct PngHeader {
  enum Colors : std::uint8_t { Gray = 0, True = 2, Indexed = 3, GrayAlpha = 4, TrueAlpha = 6 };

  std::int64_t width = 0;
  std::int64_t height = 0;
  int depth = 0;  ///< bits of a sample or an index: 1, 2, 4, 8, 16
  Colors colors = Gray;
  bool interlaced = false;
  bool has_transparency = false;  ///< samples of its own, or a tRNS chunk

  /// Bits that a pixel of the bitmap takes: at most 8 a sample, and 8 for what is transparent.
  [[nodiscard]] int BitmapBits() const noexcept;
};

/// Fills `header` and returns an empty text, or why the picture is not decoded. `greatest` is the
/// most bytes that its bitmap may have.
[[nodiscard]] std::string ReadPngHeader(std::span<const std::uint8_t> file, std::int64_t greatest,
                                        PngHeader& header);

}  // namespace vellumark::platform
