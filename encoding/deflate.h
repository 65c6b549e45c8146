// SPDX-License-Identifier: MIT
//
// Deflate: compresses bytes into raw deflate data (RFC 1951), in one call.
//
//     std::int32_t size = 0;
//     std::string compressed;
//     if (Deflate::Encode(input_size, input, size, compressed, 6)) ...
//
// Levels 1 (fastest) to 9 (smallest). The same input and level give the same bytes on every
// machine. The input is read in place; a call allocates at most 460 KiB besides the output.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace vellumark::encoding {

class Deflate {
 public:
  /// Compresses the first `input_size` bytes of `input` into `output`, with room for a line end
  /// behind them, and sets `output_size` to the number of compressed bytes. Returns false, and an
  /// empty output, if the level is not 1 to 9 or the input size is negative or more than `input`
  /// holds.
  static bool Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output, std::uint8_t level);

  /// Appends the compressed bytes to `output`; without a reallocation if it has room
  /// for GreatestSize() more. Returns false, with `output` unchanged, if the level is not 1 to 9.
  static bool Append(std::span<const std::uint8_t> input, std::uint8_t level, std::string& output);

  /// The room that is enough for any input of this size.
  static std::size_t GreatestSize(std::size_t input_size);
};

}  // namespace vellumark::encoding
