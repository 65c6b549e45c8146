// SPDX-License-Identifier: MIT
//
// RunLength: bytes as runs of equal bytes.
//
//     data       = { run } final_run end_marker
//     run        = length:1 byte:1    length 257 - k for k = 2 to 128 equal bytes, 0 for one
//     final_run  = length:1 byte:1    length 255 - k for k = 2 to 128, 0 for one (oddities.h)
//     end_marker = 0xC7               (oddities.h)
//
// Every run is a pair: sequences of different bytes are not gathered, so data without runs doubles.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vellumark::encoding {

/// The data in runs, ready for a line end to be appended. Empty data has no first run: it raises
/// RunTimeError::SubscriptOutOfRange.
std::string EncodeRunLength(std::span<const std::uint8_t> data);

}  // namespace vellumark::encoding
