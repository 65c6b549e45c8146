// SPDX-License-Identifier: MIT
//
// JpegHeader: what a page language must know of a JPG file that goes into it unchanged.
//
//     const std::optional<JpegHeader> jpeg = ReadJpegHeader(bytes);
//     if (jpeg) Show(jpeg->width, jpeg->height, jpeg->components);
//
// A JPG is a sequence of segments, each a marker (0xFF and a code) with, mostly, a length and data:
//
//     file      = SOI { segment } EOI
//     SOF       = 0xFF 0xC0..0xCF length:2 precision:1 height:2 width:2 components:1 ...
//     APP14     = 0xFF 0xEE length:2 "Adobe" version:2 flags:4 transform:1
//     SOS       = 0xFF 0xDA length:2 ... and the compressed data up to the next marker
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace vellumark::layout {

struct JpegHeader {
  std::int16_t width = 0;       ///< pixels
  std::int16_t height = 0;      ///< pixels
  std::uint8_t components = 0;  ///< 1 gray, 3 colors, 4 inks
  bool progressive = false;     ///< readers know it since PDF 1.3
  bool inverted = false;  ///< four inks in which 0 is full, as one maker's programs write them
};

/// Nothing if the bytes are not a whole JPG that every reader takes: baseline or progressive,
/// Huffman-coded, 8 bits a sample, 1, 3 or 4 components, at most 32,767 pixels a side, and not
/// three components that are colors themselves without saying so.
[[nodiscard]] std::optional<JpegHeader> ReadJpegHeader(std::span<const std::uint8_t> bytes);

}  // namespace vellumark::layout
