// SPDX-License-Identifier: MIT
#include "encoding/block_writer.h"

#include <algorithm>
#include <cstddef>

#include "encoding/deflate_format.h"
#include "encoding/tree_description.h"

namespace vellumark::encoding {
namespace {

constexpr auto kFixedLiteralLengthCodes = [] {
  std::array<HuffmanCode, format::kFixedLiteralLengthSymbols> codes{};
  for (std::size_t symbol = 0; symbol < codes.size(); ++symbol) {
    codes[symbol].length =
        static_cast<std::uint16_t>(format::FixedLiteralLengthBits(static_cast<int>(symbol)));
  }
  AssignCodes(codes);
  return codes;
}();

constexpr auto kFixedDistanceCodes = [] {
  std::array<HuffmanCode, format::kDistanceCodes> codes{};
  for (HuffmanCode& code : codes) code.length = format::kFixedDistanceBits;
  AssignCodes(codes);
  return codes;
}();

constexpr std::size_t kStoredHeader = 6;  // type and padding, length, complement

// Bits of all symbols under a code, extra bits included.
template <typename ExtraBits>
std::size_t CodedBits(std::span<const std::uint16_t> frequencies,
                      std::span<const HuffmanCode> codes, ExtraBits extra_bits) {
  std::size_t bits = 0;
  for (std::size_t symbol = 0; symbol < frequencies.size(); ++symbol) {
    const auto extra = static_cast<unsigned>(extra_bits(static_cast<int>(symbol)));
    bits += std::size_t{frequencies[symbol]} * (codes[symbol].length + extra);
  }
  return bits;
}

// A code together with the extra bits that follow it, ready to be put as one number.
struct SendBits {
  std::uint32_t bits;
  std::uint32_t count;
};

// What each match length is sent as.
using LengthTable = std::array<SendBits, format::kMaxMatch + 1>;

LengthTable MakeLengthTable(std::span<const HuffmanCode> literal_lengths) {
  LengthTable table;
  for (std::uint32_t length = format::kMinMatch; length <= format::kMaxMatch; ++length) {
    const unsigned code = format::LengthCode(length);
    const HuffmanCode huffman = literal_lengths[format::kFirstLengthSymbol + code];
    const std::uint32_t extra = length - format::kLengthBase[code];
    table[length] = {
        huffman.bits | extra << huffman.length,
        huffman.length + static_cast<unsigned>(format::LengthExtraBits(static_cast<int>(code)))};
  }
  return table;
}

}  // namespace

void BlockWriter::Write(std::span<const Symbol> symbols,
                        std::optional<std::span<const std::uint8_t>> bytes, bool is_final) {
  CountFrequencies(symbols);
  const std::size_t literal_lengths =
      BuildCodeLengths(literal_length_frequencies_, format::kMaxCodeLength, literal_length_codes_);
  const std::size_t distances =
      BuildCodeLengths(distance_frequencies_, format::kMaxCodeLength, distance_codes_);
  const TreeDescription description{std::span{literal_length_codes_}.first(literal_lengths),
                                    std::span{distance_codes_}.first(distances)};

  const auto size_under = [this](std::span<const HuffmanCode> literal_length_codes,
                                 std::span<const HuffmanCode> distance_codes) {
    return CodedBits(literal_length_frequencies_, literal_length_codes,
                     format::LiteralLengthExtraBits) +
           CodedBits(distance_frequencies_, distance_codes, format::DistanceExtraBits);
  };
  // Whole bytes with the block's three header bits.
  const std::size_t dynamic_size =
      (size_under(literal_length_codes_, distance_codes_) + description.BitCount() + 3 + 7) / 8;
  const std::size_t fixed_size =
      (size_under(kFixedLiteralLengthCodes, kFixedDistanceCodes) + 3 + 7) / 8;
  const std::size_t coded_size = std::min(fixed_size, dynamic_size);

  // A stored block has its length and the complement of it before the bytes.
  if (bytes && bytes->size() + 4 <= coded_size && bytes->size() <= format::kMaxStoredLength) {
    bits_.Reserve(kStoredHeader + bytes->size());
    WriteHeader(format::BlockType::Stored, is_final);
    WriteStored(*bytes);
  } else if (fixed_size == coded_size) {
    bits_.Reserve(fixed_size);
    WriteHeader(format::BlockType::Fixed, is_final);
    WriteSymbols(symbols, kFixedLiteralLengthCodes, kFixedDistanceCodes);
  } else {
    bits_.Reserve(dynamic_size);
    WriteHeader(format::BlockType::Dynamic, is_final);
    description.Write(bits_);
    AssignCodes(literal_length_codes_);
    AssignCodes(distance_codes_);
    WriteSymbols(symbols, literal_length_codes_, distance_codes_);
  }
  if (is_final) {
    bits_.AlignToByte();
    bits_.Finish();
  }
}

void BlockWriter::CountFrequencies(std::span<const Symbol> symbols) {
  literal_length_frequencies_.fill(0);
  distance_frequencies_.fill(0);
  literal_length_frequencies_[format::kEndOfBlock] = 1;
  for (const Symbol symbol : symbols) {
    if (symbol.IsLiteral()) {
      ++literal_length_frequencies_[symbol.Byte()];
    } else {
      ++literal_length_frequencies_[format::kFirstLengthSymbol +
                                    format::LengthCode(symbol.Length())];
      ++distance_frequencies_[format::DistanceCode(symbol.Distance())];
    }
  }
}

void BlockWriter::WriteHeader(format::BlockType type, bool is_final) {
  bits_.Put(is_final ? 1 : 0, 1);
  bits_.Put(static_cast<unsigned>(type), 2);
  bits_.Flush();
}

void BlockWriter::WriteStored(std::span<const std::uint8_t> bytes) {
  bits_.AlignToByte();
  bits_.Put(bytes.size(), 16);
  bits_.Put(format::kMaxStoredLength - bytes.size(), 16);
  bits_.Flush();
  bits_.PutBytes(bytes);
}

void BlockWriter::WriteSymbols(std::span<const Symbol> symbols,
                               std::span<const HuffmanCode> literal_lengths,
                               std::span<const HuffmanCode> distances) {
  const LengthTable lengths = MakeLengthTable(literal_lengths);
  BitWriter bits = bits_;
  for (const Symbol symbol : symbols) {
    if (symbol.IsLiteral()) {
      const HuffmanCode code = literal_lengths[symbol.Byte()];
      bits.Put(code.bits, code.length);
    } else {
      const SendBits length = lengths[symbol.Length()];
      const unsigned distance_code = format::DistanceCode(symbol.Distance());
      const HuffmanCode distance = distances[distance_code];
      bits.Put(length.bits, length.count);
      bits.Put(distance.bits, distance.length);
      bits.Put(symbol.Distance() - format::kDistanceBase[distance_code],
               static_cast<unsigned>(format::DistanceExtraBits(static_cast<int>(distance_code))));
    }
    bits.Flush();
  }
  const HuffmanCode end = literal_lengths[format::kEndOfBlock];
  bits.Put(end.bits, end.length);
  bits.Flush();
  bits_.Continue(bits);
}

}  // namespace vellumark::encoding
