// SPDX-License-Identifier: MIT
//
// Where the encoded data differs, on purpose, from what a reader of the filter expects. All of it
// is in the run-length encoder; the other encoders keep to their formats to the byte.
#pragma once

#include <cstdint>

namespace vellumark::encoding::oddities {

/// The length byte of the last run is two less than that of any other run with repetitions, so a
/// decoder yields two bytes more than went in. A picture has all its samples by then and readers
/// ignore the surplus; files keep the bytes that users' archives and comparisons know.
inline constexpr int kFinalRunLengthByteLess = 2;

/// The data ends with this byte and not with the filter's end-of-data code 128. A decoder takes it
/// for the length of one more run and either repeats the byte behind it or finds none; all samples
/// are read by then. It stays for the same reason.
inline constexpr std::uint8_t kRunLengthEndMarker = 0xC7;

}  // namespace vellumark::encoding::oddities
