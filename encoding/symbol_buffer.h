// SPDX-License-Identifier: MIT
//
// The symbols of the block being made, literals and matches in order, and how often each occurs.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/deflate_format.h"

namespace vellumark::encoding {

/// A literal or a match in one number, cut as it will be sent: which literal or length, which
/// distance code, and the value of the distance's extra bits.
class Symbol {
 public:
  static constexpr std::size_t kFirsts = 512;     ///< values of First()
  static constexpr std::size_t kNoDistance = 31;  ///< DistanceCode() of a literal

  Symbol() = default;
  static constexpr Symbol Literal(std::uint8_t byte) {
    return Symbol(byte | kNoDistance << kDistanceCodeShift);
  }
  static constexpr Symbol Match(std::uint32_t length, std::uint32_t distance,
                                std::uint32_t distance_code) {
    return Symbol((256 + length - format::kMinMatch) | distance_code << kDistanceCodeShift |
                  (distance - format::kDistanceBase[distance_code]) << kExtraShift);
  }

  /// The literal's byte, or 256 + match length - 3.
  [[nodiscard]] constexpr std::size_t First() const { return bits_ % kFirsts; }
  [[nodiscard]] constexpr std::size_t DistanceCode() const {
    return bits_ >> kDistanceCodeShift & 31U;
  }
  [[nodiscard]] constexpr std::uint32_t DistanceExtra() const { return bits_ >> kExtraShift; }

 private:
  static constexpr unsigned kDistanceCodeShift = 9;
  static constexpr unsigned kExtraShift = 14;

  explicit constexpr Symbol(std::size_t bits) : bits_(static_cast<std::uint32_t>(bits)) {}

  std::uint32_t bits_;
};

/// Collects symbols and tells when their block is to be written.
class SymbolBuffer {
 public:
  static constexpr std::size_t kFull = 16383;
  static constexpr std::size_t kEarlyCut = 8192;

  /// `cuts_early`: whether a half-full buffer may end the block.
  explicit SymbolBuffer(bool cuts_early) : cuts_early_(cuts_early) { Clear(); }

  /// Adds a symbol. True when the block must be written now; `block_bytes` is the number of bytes
  /// from the block's start to the current position, which has not yet moved over the symbol.
  bool AddLiteral(std::uint8_t byte, std::int32_t block_bytes) {
    ++literal_lengths_[byte];
    return Add(Symbol::Literal(byte), block_bytes);
  }
  bool AddMatch(std::int32_t match_length, std::int32_t match_distance, std::int32_t block_bytes) {
    const auto length = static_cast<std::uint32_t>(match_length);
    const auto distance = static_cast<std::uint32_t>(match_distance);
    const unsigned distance_code = format::DistanceCode(distance);
    ++literal_lengths_[format::kFirstLengthSymbol + format::LengthCode(length)];
    ++distances_[distance_code];
    return Add(Symbol::Match(length, distance, distance_code), block_bytes);
  }

  [[nodiscard]] std::span<const Symbol> Symbols() const { return {symbols_.data(), count_}; }
  /// How often each literal/length symbol occurs, the end of the block included.
  [[nodiscard]] std::span<const std::uint16_t> LiteralLengths() const { return literal_lengths_; }
  [[nodiscard]] std::span<const std::uint16_t> Distances() const { return distances_; }

  void Clear();

 private:
  bool Add(Symbol symbol, std::int32_t block_bytes) {
    symbols_[count_++] = symbol;
    return count_ == next_check_ && IsFull(block_bytes);
  }
  bool IsFull(std::int32_t block_bytes);

  std::size_t count_ = 0;
  std::size_t next_check_ = 0;
  bool cuts_early_;
  std::array<std::uint16_t, format::kLiteralLengthCodes> literal_lengths_;
  std::array<std::uint16_t, format::kDistanceCodes> distances_;
  std::array<Symbol, kFull + 1> symbols_;
};

}  // namespace vellumark::encoding
