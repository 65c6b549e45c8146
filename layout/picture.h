// SPDX-License-Identifier: MIT
//
// LoadPicture: a picture file as the samples that page languages paint.
//
//     Picture picture;
//     std::string reason;
//     if (!LoadPicture(platform, "logo.bmp", DeepSamples::AsTheyAre, picture, reason)) ...
//     if (!LoadOriginal(platform, "photo.jpg", picture)) ...                // the file's own bytes
//
// Samples are the picture's rows from the bottom upwards, without padding:
//
//     bits per pixel   palette                      a row
//     1, 4, 8          2^bits x red, green, blue    indices, the first in the highest bits
//     16               none                         2 bytes a pixel, see ShiftFirstBytes
//     24               none                         red, green, blue
//     32               none                         red, green, blue, the fourth byte as it was
//
// A picture with transparency has a palette or 24 bits, and beside its samples the alpha: one byte
// a pixel, 255 for an opaque one, its rows in the order of the samples'.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <vellumark/platform.h>

#include "layout/jpeg_header.h"
#include "layout/picture_source.h"

namespace vellumark::layout {

/// What becomes of pictures of 16 and 32 bits per pixel.
enum class DeepSamples {
  AsTheyAre,  ///< classic output (document/oddities.h)
  TrueColor,  ///< 24 bits
};

struct Picture {
  std::int16_t width = 0;   ///< pixels
  std::int16_t height = 0;  ///< pixels
  std::uint8_t bits_per_pixel = 0;
  std::vector<std::uint8_t> palette;  ///< at 8 bits per pixel or fewer
  std::vector<std::uint8_t> samples;
  std::vector<std::uint8_t> alpha;  ///< width x height; empty if the picture is opaque

  /// Instead of samples: a whole JPG file, and what its header says.
  std::vector<std::uint8_t> original;
  JpegHeader jpeg;

  [[nodiscard]] bool HasPalette() const noexcept { return original.empty() && bits_per_pixel <= 8; }
};

/// Returns false, with a `reason` and `picture` unchanged, if the platform cannot load the file.
/// With samples as they are, rows are counted in 16 bits: one of more than 32,767 bytes, such as
/// 10,923 pixels of 24 bits, raises run-time error 6 unless it has a palette. A picture with
/// transparency always counts as one of 24 bits there, which it becomes on its page.
bool LoadPicture(Platform& platform, const PictureSource& source, DeepSamples deep,
                 Picture& picture, std::string& reason);

/// Takes the bytes of a JPG file that every reader understands, and its size. Returns false, with
/// `picture` unchanged, for any other file, and if the platform does not read it.
bool LoadOriginal(Platform& platform, const PictureSource& source, Picture& picture);

/// What becomes of a row at 16 bits per pixel, on purpose: the exchange of a pixel's first and
/// third byte, made for three bytes a pixel, moves the first byte of every pixel one pixel to the
/// left. The first pixel's is pushed out of the row, and the last pixel takes the one that the row
/// below pushed out (`pushed_out`, 0 for the bottom row). Readers do not show such a picture
/// in its colors anyway (docs/pictures.md); the bytes stay, because hosts compare them.
void ShiftFirstBytes(std::span<std::uint8_t> row, std::uint8_t& pushed_out) noexcept;

}  // namespace vellumark::layout
