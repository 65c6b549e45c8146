// SPDX-License-Identifier: MIT
//
// Writes the symbols of one block in the shortest of deflate's three ways.
//
//     block   = final:1 type:2 body
//     stored  = padding to a byte, length:16, complement of length:16, the bytes
//     fixed   = symbols, end of block
//     dynamic = tree description (tree_description.h), symbols, end of block
//     symbol  = literal code | length code, extra bits, distance code, extra bits
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "encoding/bit_writer.h"
#include "encoding/huffman_code.h"
#include "encoding/symbol_buffer.h"

namespace vellumark::encoding {

class BlockWriter {
 public:
  /// Appends blocks to `output`, which must outlive the writer.
  explicit BlockWriter(std::string& output) : bits_(output) {}

  /// Writes one block. `bytes` are the input bytes that the symbols stand for; without them the
  /// block is never stored. After the final block the output is complete.
  void Write(const SymbolBuffer& symbols, std::optional<std::span<const std::uint8_t>> bytes,
             bool is_final);

 private:
  void WriteHeader(format::BlockType type, bool is_final);
  void WriteStored(std::span<const std::uint8_t> bytes);
  void WriteSymbols(std::span<const Symbol> symbols, std::span<const HuffmanCode> literal_lengths,
                    std::span<const HuffmanCode> distances);

  BitWriter bits_;
  std::array<HuffmanCode, format::kLiteralLengthCodes> literal_length_codes_;
  std::array<HuffmanCode, format::kDistanceCodes> distance_codes_;
};

}  // namespace vellumark::encoding
