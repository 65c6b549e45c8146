// SPDX-License-Identifier: MIT
//
// One picture on one page, written by other libraries. Each function ends the benchmark (fail.h) if
// its library refuses a call.
#pragma once

#include <cstdint>
#include <span>

namespace vellumark::bench {

/// A picture of 24 bits per pixel: rows from the top, red, green, blue, without padding.
struct Raster {
  int width = 0;
  int height = 0;
  std::span<const std::uint8_t> samples;
};

enum class Filter { Ascii85, AsciiHex, Flate };

/// libharu has only Flate.
void WriteWithHaru(const Raster& picture, const char* path);

void WriteWithPodofo(const Raster& picture, Filter filter, const char* path);

}  // namespace vellumark::bench
