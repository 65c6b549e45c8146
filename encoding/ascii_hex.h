// SPDX-License-Identifier: MIT
//
// AsciiHex: bytes as hexadecimal text.
//
//     text = { digit digit } ">"     digits "0" to "9" and "A" to "F", the high four bits first
//
// No white space and no line breaks are written. The text has two characters for each byte, and one
// more.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "encoding/encoded_output.h"

namespace vellumark::encoding {

class AsciiHex {
 public:
  /// Encodes the first `input_size` bytes of `input` into `output` and sets `output_size` to the
  /// length of the text. Returns false, and an empty output, if the input size is negative or
  /// more than `input` holds, or the text would have more than 2^31 - 1 characters.
  static bool Encode(std::int32_t input_size, std::span<const std::uint8_t> input,
                     std::int32_t& output_size, std::string& output);

  /// The length of the text, which may be beyond what Encode returns.
  static std::uint64_t TextSize(std::span<const std::uint8_t> input) noexcept;

  /// The text piece by piece, without memory for all of it.
  static void EncodeTo(const PieceSink& sink, std::span<const std::uint8_t> input);
};

}  // namespace vellumark::encoding
