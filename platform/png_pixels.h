// SPDX-License-Identifier: MIT
//
// What becomes of a PNG file's rows once they are decoded, whoever decoded them.
//
// Rows lie in `bitmap.pixels` where a bitmap's lie, from the bottom upwards, but `stride` bytes
// apart, which is a bitmap's row size or more.
#pragma once

#include <cstddef>

#include <vellumark/bitmap.h>

namespace vellumark::platform {

/// Rows whose pixels have one byte of opacity behind their color become those of the bitmap, of 8
/// or 24 bits, and its alpha, which is empty if every pixel is opaque.
void SeparateAlpha(std::size_t stride, Bitmap& bitmap);

/// Rows of 2 bits a pixel become those of the bitmap, of 4 bits.
void WidenTwoBits(std::size_t stride, Bitmap& bitmap);

/// Fills the first `count` colors of the palette with grays from black to white.
void TakeGrays(std::size_t count, Bitmap& bitmap);

/// A bitmap without a transparent pixel has no alpha.
void ForgetOpaqueAlpha(Bitmap& bitmap);

}  // namespace vellumark::platform
