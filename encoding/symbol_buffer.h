// SPDX-License-Identifier: MIT
//
// The symbols of the block being made: literals and matches, in order, one 32-bit number each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/deflate_format.h"

namespace vellumark::encoding {

/// A literal byte (distance 0) or a match.
class Symbol {
 public:
  Symbol() = default;
  static constexpr Symbol Literal(std::uint8_t byte) { return Symbol(byte); }
  static constexpr Symbol Match(std::uint32_t length, std::uint32_t distance) {
    return Symbol(distance << 16 | length);
  }

  [[nodiscard]] constexpr bool IsLiteral() const { return bits_ < 256; }
  [[nodiscard]] constexpr std::uint8_t Byte() const { return static_cast<std::uint8_t>(bits_); }
  [[nodiscard]] constexpr std::uint32_t Length() const { return bits_ & 0xFFFFU; }
  [[nodiscard]] constexpr std::uint32_t Distance() const { return bits_ >> 16; }

 private:
  explicit constexpr Symbol(std::uint32_t bits) : bits_(bits) {}

  std::uint32_t bits_;  // length or literal in the low half, distance in the high half
};

/// Collects symbols and tells when their block is to be written.
class SymbolBuffer {
 public:
  static constexpr std::size_t kFull = 16383;
  static constexpr std::size_t kEarlyCut = 8192;

  /// `cut_early`: whether a half-full buffer may end the block.
  explicit SymbolBuffer(bool cut_early) : cut_early_(cut_early) { Clear(); }

  /// Adds a symbol. True when the block must be written now; `block_bytes` is the number of bytes
  /// from the block's start to the current position, which has not yet moved over the symbol.
  bool Add(Symbol symbol, std::int32_t block_bytes) {
    symbols_[count_++] = symbol;
    return count_ == next_check_ && IsFull(block_bytes);
  }

  [[nodiscard]] std::span<const Symbol> Symbols() const { return {symbols_.data(), count_}; }

  void Clear() {
    count_ = 0;
    next_check_ = cut_early_ ? kEarlyCut : kFull;
  }

 private:
  bool IsFull(std::int32_t block_bytes);

  std::size_t count_ = 0;
  std::size_t next_check_ = 0;
  bool cut_early_;
  std::array<Symbol, kFull + 1> symbols_;
};

}  // namespace vellumark::encoding
