// SPDX-License-Identifier: MIT
#include "layout/picture.h"

#include <cstring>
#include <limits>
#include <utility>

#include <vellumark/run_time_error.h>

#include "layout/color_order.h"
#include "layout/dib.h"

namespace vellumark::layout {
namespace {

/// Rows without a palette are counted in 16 bits.
void CheckRowLength(std::size_t length) {
  if (length > std::numeric_limits<std::int16_t>::max()) {
    throw RunTimeError(RunTimeError::Overflow);
  }
}

std::size_t RowLength(const Dib& dib) {
  const auto width = static_cast<std::size_t>(dib.ImageWidth());
  if (dib.BitsPerPixel() > 8) {
    const std::size_t length = width * (dib.BitsPerPixel() / 8U);
    CheckRowLength(length);
    return length;
  }
  const std::size_t pixels_per_byte = 8U / dib.BitsPerPixel();
  return (width + pixels_per_byte - 1) / pixels_per_byte;
}

/// Moves a row up to where it belongs, unless it lies there already.
void MoveRow(std::uint8_t* to, const std::uint8_t* from, std::size_t length) noexcept {
  if (to != from) std::memmove(to, from, length);
}

void TakePalette(const Dib& dib, Picture& picture) {
  picture.palette.clear();
  picture.palette.reserve(3 * dib.Palette().size());
  for (const Bitmap::Color& color : dib.Palette()) {
    picture.palette.insert(picture.palette.end(), {color.red, color.green, color.blue});
  }
}

/// One pass over the stored rows where they lie: each moves up against the one before, which drops
/// that one's padding, and is put in order there.
void TakeSamples(Dib& dib, Picture& picture) {
  const std::size_t length = RowLength(dib);
  const std::size_t bytes_per_pixel = dib.BitsPerPixel() / 8U;
  const auto scan_width = static_cast<std::size_t>(dib.ImageScanWidth());
  const auto height = static_cast<std::size_t>(dib.ImageHeight());
  std::uint8_t pushed_out = 0;
  picture.samples = dib.TakePixels();
  for (std::size_t r = 0; r < height; ++r) {
    const std::span<std::uint8_t> row(picture.samples.data() + r * length, length);
    MoveRow(row.data(), picture.samples.data() + r * scan_width, length);
    if (bytes_per_pixel == 2) ShiftFirstBytes(row, pushed_out);
    if (bytes_per_pixel > 2) ExchangeBlueAndRed(row, bytes_per_pixel);
  }
  picture.samples.resize(length * height);
}

/// Five bits of a part as eight.
std::uint8_t Widened(unsigned part) noexcept {
  return static_cast<std::uint8_t>((part & 31U) << 3U | (part & 31U) >> 2U);
}

/// A row of 16 or 32 bits as red, green, blue.
void WriteTrueColor(std::span<const std::uint8_t> row, std::size_t bytes_per_pixel,
                    std::uint8_t* to) noexcept {
  for (std::size_t at = 0; at < row.size(); at += bytes_per_pixel, to += 3) {
    if (bytes_per_pixel == 2) {
      const unsigned pixel = row[at] | unsigned{row[at + 1]} << 8U;
      to[0] = Widened(pixel >> 10U);
      to[1] = Widened(pixel >> 5U);
      to[2] = Widened(pixel);
    } else {
      const std::uint8_t blue = row[at];
      const std::uint8_t green = row[at + 1];
      to[0] = row[at + 2];
      to[1] = green;
      to[2] = blue;
    }
  }
}

/// At 24 bits per pixel, whatever the file has.
void TakeTrueColor(Dib& dib, Picture& picture) {
  const std::size_t bytes_per_pixel = dib.BitsPerPixel() / 8U;
  const auto scan_width = static_cast<std::size_t>(dib.ImageScanWidth());
  const auto width = static_cast<std::size_t>(dib.ImageWidth());
  const auto height = static_cast<std::size_t>(dib.ImageHeight());
  picture.bits_per_pixel = 24;
  std::vector<std::uint8_t> pixels = dib.TakePixels();
  const bool grows = bytes_per_pixel < 3;
  std::vector<std::uint8_t> wider(grows ? 3 * width * height : 0);
  std::vector<std::uint8_t>& samples = grows ? wider : pixels;
  for (std::size_t r = 0; r < height; ++r) {
    // Where a row shrinks it is written over itself or over rows that are done.
    const std::uint8_t* const from = pixels.data() + r * scan_width;
    std::uint8_t* const to = samples.data() + r * 3 * width;
    if (bytes_per_pixel == 3) {
      MoveRow(to, from, 3 * width);
      ExchangeBlueAndRed({to, 3 * width}, 3);
    } else {
      WriteTrueColor({from, width * bytes_per_pixel}, bytes_per_pixel, to);
    }
  }
  samples.resize(3 * width * height);
  picture.samples = std::move(samples);
}

}  // namespace

void ShiftFirstBytes(std::span<std::uint8_t> row, std::uint8_t& pushed_out) noexcept {
  std::uint8_t from_right = pushed_out;
  for (std::size_t at = row.size(); at != 0;) {
    at -= 2;
    from_right = std::exchange(row[at], from_right);
  }
  pushed_out = from_right;
}

bool LoadPicture(Platform& platform, const PictureSource& source, DeepSamples deep,
                 Picture& picture, std::string& reason) {
  Dib dib;
  if (!dib.Load(platform, source, reason)) return false;
  const bool opaque = dib.Alpha().empty();
  if (!opaque && deep == DeepSamples::AsTheyAre) {
    CheckRowLength(3 * static_cast<std::size_t>(dib.ImageWidth()));
  }
  picture.width = dib.ImageWidth();
  picture.height = dib.ImageHeight();
  picture.bits_per_pixel = dib.BitsPerPixel();
  picture.alpha = dib.TakeAlpha();
  if (picture.HasPalette()) TakePalette(dib, picture);
  if (picture.bits_per_pixel > 8 && (deep == DeepSamples::TrueColor || !opaque)) {
    TakeTrueColor(dib, picture);
  } else {
    TakeSamples(dib, picture);
  }
  return true;
}

bool LoadOriginal(Platform& platform, const PictureSource& source, Picture& picture) {
  std::vector<std::uint8_t> bytes;
  std::optional<JpegHeader> header;
  if (const auto* const file = std::get_if<std::string_view>(&source)) {
    std::string reason;
    if (!platform.ReadPicture(*file, bytes, reason)) return false;
    header = ReadJpegHeader(bytes);
  } else {
    const auto given = std::get<std::span<const std::uint8_t>>(source);
    if (given.size() > std::numeric_limits<std::int32_t>::max()) return false;
    header = ReadJpegHeader(given);
    if (header) bytes.assign(given.begin(), given.end());
  }
  if (!header) return false;
  picture.width = header->width;
  picture.height = header->height;
  picture.bits_per_pixel = static_cast<std::uint8_t>(8 * header->components);
  picture.jpeg = *header;
  picture.original = std::move(bytes);
  return true;
}

}  // namespace vellumark::layout
