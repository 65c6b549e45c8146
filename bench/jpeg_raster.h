// SPDX-License-Identifier: MIT
//
// JPG files for the picture benchmarks: made from a raster, and decoded as a host does that passes
// plain samples to a library.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/picture_writers.h"

namespace vellumark::bench {

[[nodiscard]] std::string EncodeJpeg(const Raster& picture);

/// Samples as in a Raster.
[[nodiscard]] std::vector<std::uint8_t> DecodeJpeg(const std::string& file);

}  // namespace vellumark::bench
