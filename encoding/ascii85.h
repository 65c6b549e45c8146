// SPDX-License-Identifier: MIT
//
// Ascii85: bytes as base-85 text.
//
//     text  = { group | "z" } [ rest ] "~>"
//     group = five characters "!" to "u": four bytes as one number, the first byte highest, in
//             base 85, the highest digit first
//     "z"   = four zero bytes
//     rest  = m + 1 characters for m = 1 to 3 last bytes, missing bytes counting as zero; never "z"
//
// No line breaks are written. The text is about 5/4 of the input's size.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "encoding/encoded_output.h"

namespace vellumark::encoding {

class Ascii85 {
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
