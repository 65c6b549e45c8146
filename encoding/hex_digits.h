// SPDX-License-Identifier: MIT
//
// The inner loop of hexadecimal text, in two forms that write the same digits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vellumark::encoding {

/// Writes two digits per byte to `out`, by a table of the 256 digit pairs.
void WriteHexDigitsPortable(std::span<const std::uint8_t> bytes, std::uint8_t* out);

/// The same, 16 bytes at a time if the build has vector instructions.
void WriteHexDigits(std::span<const std::uint8_t> bytes, std::uint8_t* out);

}  // namespace vellumark::encoding
