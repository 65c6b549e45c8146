// SPDX-License-Identifier: MIT
//
// PackedRuns: bytes as a run-length filter of PDF and PostScript wants them.
//
//     data    = { run | literal } 0x80
//     run     = length:1 byte:1           length 257 - k for k = 2 to 128 equal bytes
//     literal = length:1 byte:k           length k - 1 for k = 1 to 128 bytes as they are
//
// Three equal bytes begin a run; two do where nothing but pairs stands between two runs. That is
// the shortest form but for a byte or two where a literal passes 128 bytes. The greatest size is
// that of the data, one byte for each 128, and one more.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vellumark::encoding {

/// The data in runs and literals, with room for a line end behind it. Empty data is the end marker
/// alone.
std::string EncodePackedRuns(std::span<const std::uint8_t> data);

}  // namespace vellumark::encoding
