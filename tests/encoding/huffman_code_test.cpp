// SPDX-License-Identifier: MIT
#include "encoding/huffman_code.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace vellumark::encoding {
namespace {

std::vector<int> Lengths(std::vector<std::uint16_t> frequencies, int max_length) {
  std::vector<HuffmanCode> codes(frequencies.size());
  const std::size_t used = BuildCodeLengths(frequencies, max_length, codes);
  std::vector<int> lengths;
  for (const HuffmanCode code : std::span(codes).first(used)) lengths.push_back(code.length);
  return lengths;
}

TEST(HuffmanCode, FewerThanTwoSymbolsAreFilledUp) {
  EXPECT_EQ(Lengths({0, 0, 0, 0, 0, 0}, 15), (std::vector<int>{1, 1}));
  EXPECT_EQ(Lengths({7, 0, 0, 0, 0, 0}, 15), (std::vector<int>{1, 1}));
  EXPECT_EQ(Lengths({0, 7, 0, 0, 0, 0}, 15), (std::vector<int>{0, 1, 1}));
  EXPECT_EQ(Lengths({0, 0, 0, 0, 7, 0}, 15), (std::vector<int>{1, 0, 0, 0, 1}));
}

TEST(HuffmanCode, AmongEqualFrequenciesTheFlatterNodeIsJoinedFirst) {
  // Four ones make two twos, which meet the leaf of two; joined deepest first, lengths would be 4.
  EXPECT_EQ(Lengths({1, 1, 1, 1, 2, 2}, 15), (std::vector<int>{3, 3, 3, 3, 2, 2}));
}

// Fibonacci frequencies make the deepest trees.
TEST(HuffmanCode, NoCodeIsLongerThanTheLimitAndTheCodeStaysComplete) {
  for (const int limit : {7, 15}) {
    std::vector<std::uint16_t> frequencies = {1, 1};
    while (frequencies.size() < 19) {
      frequencies.push_back(
          static_cast<std::uint16_t>(frequencies.back() + *(frequencies.end() - 2)));
    }
    const std::vector<int> lengths = Lengths(frequencies, limit);
    std::size_t taken = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      EXPECT_LE(lengths[i], limit);
      EXPECT_LE(lengths[i], lengths[i == 0 ? 0 : i - 1]);  // the rarer, the longer
      taken += std::size_t{1} << (limit - lengths[i]);
    }
    EXPECT_EQ(taken, std::size_t{1} << limit);
  }
}

TEST(HuffmanCode, CodesAreCanonicalAndLieReversed) {
  // The example of RFC 1951, 3.2.2: codes 010 011 100 101 110 00 1110 1111.
  std::vector<HuffmanCode> codes;
  codes.reserve(8);
  for (const int length : {3, 3, 3, 3, 3, 2, 4, 4}) {
    codes.push_back({0, static_cast<std::uint16_t>(length)});
  }
  AssignCodes(codes);
  std::vector<int> bits(codes.size());
  std::transform(codes.begin(), codes.end(), bits.begin(),
                 [](HuffmanCode code) { return code.bits; });
  EXPECT_EQ(bits, (std::vector<int>{0b010, 0b110, 0b001, 0b101, 0b011, 0b00, 0b0111, 0b1111}));
}

}  // namespace
}  // namespace vellumark::encoding
