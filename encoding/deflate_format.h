// SPDX-License-Identifier: MIT
//
// The numbers of the deflate format (RFC 1951), each table computed from the RFC's rule.
//
//   length code    3 to 258 bytes are 29 codes, sent as literal/length symbols 257 to 285: four
//                  codes for each count of extra bits, eight for none, and 258 has its own.
//   distance code  1 to 32,768 bytes are 30 codes: two codes for each count of extra bits.
//   fixed code     literal/length lengths 8, 9, 7, 8 for symbols below 144, 256, 280, 288; all
//                  distance codes have 5 bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vellumark::encoding::format {

inline constexpr std::int32_t kMinMatch = 3;
inline constexpr std::int32_t kMaxMatch = 258;

inline constexpr int kLiterals = 256;
inline constexpr int kEndOfBlock = 256;
inline constexpr int kFirstLengthSymbol = 257;
inline constexpr int kLengthCodes = 29;
inline constexpr int kLiteralLengthCodes = kFirstLengthSymbol + kLengthCodes;  // 286
inline constexpr int kDistanceCodes = 30;
inline constexpr int kCodeLengthCodes = 19;

inline constexpr int kMaxCodeLength = 15;           // literal/length and distance codes
inline constexpr int kMaxCodeLengthCodeLength = 7;  // codes of the tree description
inline constexpr std::size_t kMaxStoredLength = 65535;

enum class BlockType : std::uint8_t { Stored = 0, Fixed = 1, Dynamic = 2 };

/// Symbols of the tree description that repeat: the previous length, a few zeros, many zeros.
inline constexpr int kRepeatPrevious = 16;
inline constexpr int kRepeatZeroShort = 17;
inline constexpr int kRepeatZeroLong = 18;

/// The order in which the lengths of the tree description's own codes are sent.
inline constexpr std::array<std::uint8_t, kCodeLengthCodes> kCodeLengthOrder = {
    16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};

constexpr int CodeLengthExtraBits(int symbol) {
  switch (symbol) {
    case kRepeatPrevious: return 2;
    case kRepeatZeroShort: return 3;
    case kRepeatZeroLong: return 7;
    default: return 0;
  }
}

constexpr int LengthExtraBits(int code) {
  return code < 8 || code == kLengthCodes - 1 ? 0 : code / 4 - 1;
}

constexpr int DistanceExtraBits(int code) { return code < 4 ? 0 : code / 2 - 1; }

/// Extra bits of a literal/length symbol: none for literals and the end of the block.
constexpr int LiteralLengthExtraBits(int symbol) {
  return symbol < kFirstLengthSymbol ? 0 : LengthExtraBits(symbol - kFirstLengthSymbol);
}

/// The shortest match length of each length code.
inline constexpr auto kLengthBase = [] {
  std::array<std::uint16_t, kLengthCodes> base{};
  unsigned length = kMinMatch;
  for (int code = 0; code < kLengthCodes - 1; ++code) {
    base[static_cast<std::size_t>(code)] = static_cast<std::uint16_t>(length);
    length += 1U << LengthExtraBits(code);
  }
  base.back() = kMaxMatch;
  return base;
}();

/// The shortest distance of each distance code.
inline constexpr auto kDistanceBase = [] {
  std::array<std::uint16_t, kDistanceCodes> base{};
  unsigned distance = 1;
  for (int code = 0; code < kDistanceCodes; ++code) {
    base[static_cast<std::size_t>(code)] = static_cast<std::uint16_t>(distance);
    distance += 1U << DistanceExtraBits(code);
  }
  return base;
}();

/// Length code by match length - 3.
inline constexpr auto kLengthCode = [] {
  std::array<std::uint8_t, kMaxMatch - kMinMatch + 1> codes{};
  std::uint8_t code = 0;
  for (std::size_t i = 0; i < codes.size(); ++i) {
    while (code + 1 < kLengthCodes && kLengthBase[code + 1U] <= i + kMinMatch) ++code;
    codes[i] = code;
  }
  return codes;
}();

/// Distance code by distance - 1 below 256, and by 256 + (distance - 1) / 128 from there on, where
/// every code spans whole steps of 128.
inline constexpr auto kDistanceCode = [] {
  std::array<std::uint8_t, 512> codes{};
  const auto code_of = [](unsigned distance) {
    std::uint8_t code = kDistanceCodes - 1;
    while (kDistanceBase[code] > distance) --code;
    return code;
  };
  for (unsigned i = 0; i < 256; ++i) {
    codes[i] = code_of(i + 1);
    codes[256 + i] = code_of(i * 128 + 1);
  }
  return codes;
}();

constexpr unsigned LengthCode(std::uint32_t length) { return kLengthCode[length - kMinMatch]; }

constexpr unsigned DistanceCode(std::uint32_t distance) {
  const std::uint32_t index = distance - 1;
  return kDistanceCode[index < 256 ? index : 256 + (index >> 7)];
}

constexpr int FixedLiteralLengthBits(int symbol) {
  if (symbol < 144) return 8;
  if (symbol < 256) return 9;
  return symbol < 280 ? 7 : 8;
}

inline constexpr int kFixedLiteralLengthSymbols = 288;  // two of them never occur
inline constexpr int kFixedDistanceBits = 5;

}  // namespace vellumark::encoding::format
