// SPDX-License-Identifier: MIT
//
// ExpandRuns: the run-length encodings of BMP files at 8 and 4 bits per pixel.
//
//     pixels   = piece * 0 1                  0 1 ends the picture
//     piece    = count index(es)              count 1 to 255: RLE8 repeats one index, RLE4 the two
//                                             of the byte in turn, high four bits first
//              | 0 0                          the next row begins
//              | 0 2 right up                 moves on by so many pixels and rows
//              | 0 count index * [pad]        count 3 to 255 indices, padded to 16 bits
//
// Rows run upwards. Pixels that the data passes over keep index 0; those beyond the end of a row
// are dropped. Data that ends before the last pixel and without an end is cut off.
#pragma once

#include <cstdint>
#include <span>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// Fills `bitmap`, which has its size, its depth (8 or 4) and pixels of 0. Returns false if the
/// data is cut off.
[[nodiscard]] bool ExpandRuns(std::span<const std::uint8_t> data, Bitmap& bitmap);

}  // namespace vellumark::platform
