// SPDX-License-Identifier: MIT
#include "layout/picture_alpha.h"

#include <array>

namespace vellumark::layout {
namespace {

/// The indices of a row with a palette as red, green, blue.
void WriteColors(std::span<const std::uint8_t> row, int bits, std::size_t width,
                 std::span<const std::uint8_t> palette, std::uint8_t* to) {
  const auto depth = static_cast<std::size_t>(bits);
  const std::size_t a_byte = 8 / depth;
  const unsigned mask = (1U << depth) - 1;
  for (std::size_t x = 0; x < width; ++x) {
    const std::size_t shift = 8 - depth * (x % a_byte + 1);
    const std::size_t index = row[x / a_byte] >> shift & mask;
    for (std::size_t part = 0; part < 3; ++part) *to++ = palette[3 * index + part];
  }
}

void ReplacePalette(Picture& picture) {
  const auto width = static_cast<std::size_t>(picture.width);
  const auto height = static_cast<std::size_t>(picture.height);
  const std::size_t row_size = picture.samples.size() / height;
  std::vector<std::uint8_t> colors(3 * width * height);
  for (std::size_t y = 0; y < height; ++y) {
    WriteColors({picture.samples.data() + y * row_size, row_size}, picture.bits_per_pixel, width,
                picture.palette, colors.data() + 3 * width * y);
  }
  picture.samples = std::move(colors);
  picture.palette.clear();
  picture.bits_per_pixel = 24;
}

}  // namespace

void ComposeOver(const Rgb& paper, Picture& picture) {
  if (picture.HasPalette()) ReplacePalette(picture);
  const std::array<unsigned, 3> below = {paper.red, paper.green, paper.blue};
  std::uint8_t* sample = picture.samples.data();
  for (const unsigned alpha : picture.alpha) {
    for (const unsigned part : below) {
      *sample = static_cast<std::uint8_t>((*sample * alpha + part * (255 - alpha) + 127) / 255);
      ++sample;
    }
  }
  picture.alpha = {};
}

}  // namespace vellumark::layout
