// SPDX-License-Identifier: MIT
//
// How a dynamic block describes its codes: the code lengths, run-length coded and Huffman coded
// again.
//
//     description = HLIT:5 HDIST:5 HCLEN:4 (length:3){HCLEN + 4} literal_lengths distances
//     sequence    = { plain:0..15 | 16 repeat:2 | 17 zeros:3 | 18 zeros:7 }
//
// HLIT counts the literal/length symbols above 257, HDIST the distance symbols above 1.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "encoding/bit_writer.h"
#include "encoding/deflate_format.h"
#include "encoding/huffman_code.h"

namespace vellumark::encoding {

class TreeDescription {
 public:
  /// Describes two codes, each up to its highest symbol in use (inclusive spans).
  TreeDescription(std::span<const HuffmanCode> literal_lengths,
                  std::span<const HuffmanCode> distances);

  [[nodiscard]] std::size_t BitCount() const;
  void Write(BitWriter& bits) const;

 private:
  struct Item {
    std::uint8_t symbol;
    std::uint8_t extra;
  };

  void AddSequence(std::span<const HuffmanCode> codes);
  void AddRun(unsigned length, unsigned count, bool repeats_previous);
  void Add(int symbol, unsigned extra);

  unsigned literal_lengths_;
  unsigned distances_;
  std::size_t sent_lengths_ = 0;  // how many of kCodeLengthOrder are sent
  std::size_t item_count_ = 0;
  std::array<Item, format::kLiteralLengthCodes + format::kDistanceCodes> items_;
  std::array<std::uint16_t, format::kCodeLengthCodes> frequencies_{};
  std::array<HuffmanCode, format::kCodeLengthCodes> codes_;
};

}  // namespace vellumark::encoding
