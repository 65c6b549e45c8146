// SPDX-License-Identifier: MIT
//
// Zlib: deflate data in a zlib stream (RFC 1950).
//
//     stream = method:1 flags:1 deflate_data adler32:4      the checksum's highest byte first
//     method = 0x78: deflate, a 32 KB history
//     flags  = level class in the two high bits, and a check that makes method * 256 + flags a
//              multiple of 31; 0x01, 0x5E, 0x9C, 0xDA for levels 1-2, 3-4, 5-6, 7-9
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vellumark::encoding {

class Zlib {
 public:
  /// Compresses the first `input_size` bytes of `input` into `output`, with room for a line end
  /// behind it, and sets `output_size` to the number of bytes. Returns false, and an empty output,
  /// if the level is not 1 to 9 or the input size is negative or more than `input` holds.
  static bool Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output, std::uint8_t level);
};

}  // namespace vellumark::encoding
