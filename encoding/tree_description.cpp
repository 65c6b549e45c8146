// SPDX-License-Identifier: MIT
#include "encoding/tree_description.h"

namespace vellumark::encoding {
namespace {

struct RunLimits {
  unsigned greatest;
  unsigned least;
};
constexpr RunLimits kZeros = {138, 3};
constexpr RunLimits kSameAgain = {6, 3};
constexpr RunLimits kNewLength = {7, 4};  // the length itself, then three to six repeats

}  // namespace

TreeDescription::TreeDescription(std::span<const HuffmanCode> literal_lengths,
                                 std::span<const HuffmanCode> distances)
    : literal_lengths_(static_cast<unsigned>(literal_lengths.size())),
      distances_(static_cast<unsigned>(distances.size())) {
  AddSequence(literal_lengths);
  AddSequence(distances);
  BuildCodeLengths(frequencies_, format::kMaxCodeLengthCodeLength, codes_);
  AssignCodes(codes_);
  sent_lengths_ = format::kCodeLengthCodes;
  while (sent_lengths_ > 4 && codes_[format::kCodeLengthOrder[sent_lengths_ - 1]].length == 0) {
    --sent_lengths_;
  }
}

void TreeDescription::AddSequence(std::span<const HuffmanCode> codes) {
  RunLimits limits = codes.front().length == 0 ? kZeros : kNewLength;
  bool repeats_previous = false;
  for (std::size_t start = 0; start < codes.size();) {
    const unsigned length = codes[start].length;
    std::size_t end = start + 1;
    while (end < codes.size() && end - start < limits.greatest && codes[end].length == length) {
      ++end;
    }
    const auto count = static_cast<unsigned>(end - start);
    if (count < limits.least) {
      for (unsigned i = 0; i < count; ++i) Add(static_cast<int>(length), 0);
    } else {
      AddRun(length, count, repeats_previous);
    }
    start = end;
    if (start == codes.size()) break;
    repeats_previous = codes[start].length == length;
    limits = codes[start].length == 0 ? kZeros : repeats_previous ? kSameAgain : kNewLength;
  }
}

void TreeDescription::AddRun(unsigned length, unsigned count, bool repeats_previous) {
  if (length != 0) {
    if (!repeats_previous) {
      Add(static_cast<int>(length), 0);
      --count;
    }
    Add(format::kRepeatPrevious, count - 3);
  } else if (count <= 10) {
    Add(format::kRepeatZeroShort, count - 3);
  } else {
    Add(format::kRepeatZeroLong, count - 11);
  }
}

void TreeDescription::Add(int symbol, unsigned extra) {
  items_[item_count_++] = {static_cast<std::uint8_t>(symbol), static_cast<std::uint8_t>(extra)};
  ++frequencies_[static_cast<std::size_t>(symbol)];
}

std::size_t TreeDescription::BitCount() const {
  std::size_t bits = 5 + 5 + 4 + 3 * sent_lengths_;
  for (std::size_t symbol = 0; symbol < codes_.size(); ++symbol) {
    const auto extra = static_cast<unsigned>(format::CodeLengthExtraBits(static_cast<int>(symbol)));
    bits += std::size_t{frequencies_[symbol]} * (codes_[symbol].length + extra);
  }
  return bits;
}

void TreeDescription::Write(BitWriter& bits) const {
  bits.Put(literal_lengths_ - format::kFirstLengthSymbol, 5);
  bits.Put(distances_ - 1, 5);
  bits.Put(sent_lengths_ - 4, 4);
  for (std::size_t i = 0; i < sent_lengths_; ++i) {
    bits.Put(codes_[format::kCodeLengthOrder[i]].length, 3);
    bits.Flush();
  }
  for (const Item& item : std::span(items_).first(item_count_)) {
    const HuffmanCode code = codes_[item.symbol];
    bits.Put(code.bits, code.length);
    bits.Put(item.extra, static_cast<unsigned>(format::CodeLengthExtraBits(item.symbol)));
    bits.Flush();
  }
}

}  // namespace vellumark::encoding
