// SPDX-License-Identifier: MIT
//
// EncodeStream: the body of a stream under one of the four filters, end marker included.
//
//     std::string line = EncodeStream(samples, EncodingConstants::Flate);
//     line += "\r\n";                                        // needs no reallocation
//
//     encoding   file      written
//     ASCII85    ascii85   base-85 text and "~>"
//     ASCIIHex   ascii_hex hexadecimal text and ">"
//     RunLength  run_length pairs of length and byte, and 0xC7
//     Flate      zlib      a zlib stream, compressed at level 6
//
// Any other encoding gives an empty string, and so does data whose encoded form would have more
// than 2^31 - 1 bytes. RunLength on empty data raises RunTimeError::SubscriptOutOfRange.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <vellumark/enumerations.h>

#include "encoding/encoded_output.h"

namespace vellumark::encoding {

/// Whether the text of an encoding has a known size, so that it can be written piece by piece.
constexpr bool IsText(EncodingConstants encoding) noexcept {
  return encoding == EncodingConstants::ASCII85 || encoding == EncodingConstants::ASCIIHex;
}

/// The size that EncodeStream's result has, or would have if it may be of any size, and the result
/// piece by piece. For the encodings that are text.
std::uint64_t TextSize(std::span<const std::uint8_t> data, EncodingConstants encoding) noexcept;
void EncodeTo(const PieceSink& sink, std::span<const std::uint8_t> data,
              EncodingConstants encoding);

/// The encoded bytes of `data`; two more may be appended without a reallocation.
std::string EncodeStream(std::span<const std::uint8_t> data, EncodingConstants encoding);

}  // namespace vellumark::encoding
