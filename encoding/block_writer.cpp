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

// What a literal or a match length is sent as: code and extra bits as one number, and their count.
struct FirstBits {
  std::uint32_t bits;
  std::uint32_t count;
};
using FirstTable = std::array<FirstBits, Symbol::kFirsts>;

FirstTable MakeFirstTable(std::span<const HuffmanCode> codes) {
  FirstTable table;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    table[byte] = {codes[byte].bits, codes[byte].length};
  }
  for (std::uint32_t length = format::kMinMatch; length <= std::uint32_t{format::kMaxMatch};
       ++length) {
    const unsigned code = format::LengthCode(length);
    const HuffmanCode huffman = codes[format::kFirstLengthSymbol + code];
    const std::uint32_t extra = length - format::kLengthBase[code];
    const auto extra_bits =
        static_cast<std::uint32_t>(format::LengthExtraBits(static_cast<int>(code)));
    table[256 + length - format::kMinMatch] = {huffman.bits | extra << huffman.length,
                                               huffman.length + extra_bits};
  }
  return table;
}

// What a distance code is sent as, and how many bits it takes with its extra bits. A literal's
// missing distance takes none, so that literals and matches are sent alike, without a branch.
struct DistanceBits {
  std::uint16_t bits;
  std::uint8_t count;
  std::uint8_t total_count;
};
using DistanceTable = std::array<DistanceBits, Symbol::kNoDistance + 1>;

DistanceTable MakeDistanceTable(std::span<const HuffmanCode> codes) {
  DistanceTable table{};
  for (std::size_t code = 0; code < codes.size(); ++code) {
    const int extra_bits = format::DistanceExtraBits(static_cast<int>(code));
    table[code] = {codes[code].bits, static_cast<std::uint8_t>(codes[code].length),
                   static_cast<std::uint8_t>(codes[code].length + extra_bits)};
  }
  return table;
}

}  // namespace

void BlockWriter::Write(const SymbolBuffer& symbols,
                        std::optional<std::span<const std::uint8_t>> bytes, bool is_final) {
  const std::size_t literal_lengths =
      BuildCodeLengths(symbols.LiteralLengths(), format::kMaxCodeLength, literal_length_codes_);
  const std::size_t distances =
      BuildCodeLengths(symbols.Distances(), format::kMaxCodeLength, distance_codes_);
  const TreeDescription description{std::span{literal_length_codes_}.first(literal_lengths),
                                    std::span{distance_codes_}.first(distances)};

  const auto size_under = [&symbols](std::span<const HuffmanCode> literal_length_codes,
                                     std::span<const HuffmanCode> distance_codes) {
    return CodedBits(symbols.LiteralLengths(), literal_length_codes,
                     format::LiteralLengthExtraBits) +
           CodedBits(symbols.Distances(), distance_codes, format::DistanceExtraBits);
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
    WriteSymbols(symbols.Symbols(), kFixedLiteralLengthCodes, kFixedDistanceCodes);
  } else {
    bits_.Reserve(dynamic_size);
    WriteHeader(format::BlockType::Dynamic, is_final);
    description.Write(bits_);
    AssignCodes(literal_length_codes_);
    AssignCodes(distance_codes_);
    WriteSymbols(symbols.Symbols(), literal_length_codes_, distance_codes_);
  }
  if (is_final) {
    bits_.AlignToByte();
    bits_.Finish();
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
  const FirstTable first_table = MakeFirstTable(literal_lengths);
  const DistanceTable distance_table = MakeDistanceTable(distances);
  BitWriter bits = bits_;
  for (const Symbol symbol : symbols) {
    const FirstBits first = first_table[symbol.First()];
    const DistanceBits distance = distance_table[symbol.DistanceCode()];
    bits.Put(first.bits, first.count);
    bits.Put(distance.bits | symbol.DistanceExtra() << distance.count, distance.total_count);
    bits.Flush();
  }
  const HuffmanCode end = literal_lengths[format::kEndOfBlock];
  bits.Put(end.bits, end.length);
  bits.Flush();
  bits_.Continue(bits);
}

}  // namespace vellumark::encoding
