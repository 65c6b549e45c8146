// SPDX-License-Identifier: MIT
//
// The inner loop of base-85 text, in two forms that write the same characters.
//
//     to = WriteBase85Groups(bytes.first(8), to);    // ten characters, fewer for zero groups
#pragma once

#include <cstdint>
#include <span>

namespace vellumark::encoding {

/// Writes the five characters of a group of four bytes, the first one highest, to `out`.
void WriteBase85Group(std::uint32_t group, std::uint8_t* out);

/// Writes groups of four bytes to `out`, as five characters each or as "z" if all four are 0, and
/// returns the end of the text. The size of `groups` is a multiple of 4.
std::uint8_t* WriteBase85GroupsPortable(std::span<const std::uint8_t> groups, std::uint8_t* out);

/// The same, eight groups at a time if the processor has vectors of 32 bytes.
std::uint8_t* WriteBase85Groups(std::span<const std::uint8_t> groups, std::uint8_t* out);

}  // namespace vellumark::encoding
