// SPDX-License-Identifier: MIT
#include "encoding/run_length.h"

#include <gtest/gtest.h>

#include <vellumark/run_time_error.h>

#include "tests/encoding/generated_input.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

Bytes Encode(const Bytes& input) {
  const testing::GuardedBytes guarded(input);
  const std::string output = EncodeRunLength(guarded.Get());
  EXPECT_GE(output.capacity(), output.size() + 2);
  return {output.begin(), output.end()};
}

Bytes Join(Bytes first, const Bytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(RunLength, EveryRunIsAPair) {
  EXPECT_EQ(Encode({'A', 'A', 'A', 'B'}), (Bytes{0xFE, 'A', 0, 'B', 0xC7}));
  EXPECT_EQ(Encode({'x', 'y', 'z'}), (Bytes{0, 'x', 0, 'y', 0, 'z', 0xC7}));
  // A run ends at 128 bytes; the 129th begins another.
  EXPECT_EQ(Encode(Join(Bytes(128, 5), {6})), (Bytes{129, 5, 0, 6, 0xC7}));
  EXPECT_EQ(Encode(Join(Bytes(129, 5), {6})), (Bytes{129, 5, 0, 5, 0, 6, 0xC7}));
}

TEST(RunLengthOddities, TheFinalRunsLengthByteIsTwoLess) {
  EXPECT_EQ(Encode({'A', 'A', 'A', 'A'}), (Bytes{0xFB, 'A', 0xC7}));
  EXPECT_EQ(Encode(Bytes(128, 'A')), (Bytes{127, 'A', 0xC7}));
  EXPECT_EQ(Encode(Bytes(300, 'b')), (Bytes{129, 'b', 129, 'b', 211, 'b', 0xC7}));
}

TEST(RunLengthOddities, ASingleFinalByteIsNotAffected) {
  EXPECT_EQ(Encode({'x'}), (Bytes{0, 'x', 0xC7}));
}

TEST(RunLengthOddities, TheEndMarkerIsC7InsteadOf128) { EXPECT_EQ(Encode({1, 2, 2}).back(), 0xC7); }

TEST(RunLength, EmptyDataHasNoFirstByte) {
  try {
    Encode({});
    FAIL() << "no error";
  } catch (const RunTimeError& error) {
    EXPECT_EQ(error.number(), RunTimeError::SubscriptOutOfRange);
  }
}

// Thousands of pairs, past the blocks that they are gathered in.
TEST(RunLength, LongDataIsItsRunsInOrder) {
  const Bytes input = testing::GeneratedInput(30'000, 8);
  const Bytes output = Encode(input);
  Bytes decoded;
  for (std::size_t i = 0; i + 1 < output.size(); i += 2) {
    const bool is_final = i + 3 == output.size();
    const int less = is_final && output[i] != 0 ? 2 : 0;
    const int count = output[i] == 0 ? 1 : 257 - (output[i] + less);
    decoded.insert(decoded.end(), static_cast<std::size_t>(count), output[i + 1]);
  }
  EXPECT_EQ(decoded, input);
}

}  // namespace
}  // namespace vellumark::encoding
