// SPDX-License-Identifier: MIT
#include "encoding/packed_runs.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/encoding/generated_input.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

Bytes Pack(const Bytes& input) {
  const testing::GuardedBytes guarded(input);
  const std::string output = EncodePackedRuns(guarded.Get());
  EXPECT_GE(output.capacity(), output.size() + 2);
  return {output.begin(), output.end()};
}

// What the filter makes of it; empty where the end marker is missing or not at the end.
Bytes Decode(const Bytes& data) {
  Bytes decoded;
  for (std::size_t i = 0; i < data.size();) {
    const std::uint8_t length = data[i++];
    if (length == 128) return i == data.size() ? decoded : Bytes();
    if (length < 128) {
      for (int k = 0; k <= length && i < data.size(); ++k) decoded.push_back(data[i++]);
    } else if (i < data.size()) {
      decoded.insert(decoded.end(), 257U - length, data[i++]);
    }
  }
  return {};
}

TEST(PackedRuns, RunsAndLiterals) {
  EXPECT_EQ(Pack({}), (Bytes{128}));
  EXPECT_EQ(Pack({'A'}), (Bytes{0, 'A', 128}));
  EXPECT_EQ(Pack({'A', 'A', 'A', 'B'}), (Bytes{254, 'A', 0, 'B', 128}));
  EXPECT_EQ(Pack({'x', 'y', 'y', 'z'}), (Bytes{3, 'x', 'y', 'y', 'z', 128}));
  EXPECT_EQ(Pack({'x', 'x', 'y', 'y', 'z', 'z', 'z'}), (Bytes{255, 'x', 255, 'y', 254, 'z', 128}));
  EXPECT_EQ(Pack(Bytes(128, 5)), (Bytes{129, 5, 128}));
  EXPECT_EQ(Pack(Bytes(129, 5)), (Bytes{129, 5, 0, 5, 128}));
}

TEST(PackedRuns, AreFoundAtEveryPlaceAndAcrossBlocks) {
  for (std::size_t place = 0; place < 40; ++place) {
    for (std::size_t length = 1; length < 30; ++length) {
      Bytes input;
      for (std::size_t i = 0; i < 60; ++i) input.push_back(static_cast<std::uint8_t>(i));
      const std::size_t end = std::min(place + length, input.size());
      std::fill(input.begin() + static_cast<std::ptrdiff_t>(place),
                input.begin() + static_cast<std::ptrdiff_t>(end), std::uint8_t{200});
      const Bytes output = Pack(input);
      ASSERT_EQ(Decode(output), input);
      if (end - place >= 3) {
        ASSERT_LE(output.size(), 60 - (end - place) + 2 + 2 + 1);
      }
    }
  }
}

TEST(PackedRuns, LongDataComesBackAndGrowsByOneIn128AtMost) {
  for (const Bytes& input : {testing::GeneratedInput(60'000, 3), testing::Noise(60'000),
                             testing::GeneratedInput(60'000, 4, 5), Bytes(60'000, 0)}) {
    const Bytes output = Pack(input);
    EXPECT_EQ(Decode(output), input);
    EXPECT_LE(output.size(), input.size() + input.size() / 128 + 2);
  }
}

}  // namespace
}  // namespace vellumark::encoding
