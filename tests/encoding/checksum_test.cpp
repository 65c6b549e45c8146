// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <zlib.h>

#include "encoding/adler32.h"
#include "encoding/operator.h"
#include "tests/encoding/generated_input.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

TEST(Adler32, KnownValues) {
  EXPECT_EQ(Adler32::Calculate({}), 1U);
  EXPECT_EQ(Adler32::Calculate(Bytes{'a', 'b', 'c'}), 0x024D0127U);
}

// Bytes of 255 make the sums grow fastest: just below, at and above the count after which they must
// be reduced.
TEST(Adler32, VectorAndPortableSumsAgreeWithAnotherLibrary) {
  for (const std::size_t size :
       {1U, 15U, 16U, 31U, 32U, 33U, 5551U, 5552U, 5553U, 11'103U, 11'105U, 65'521U, 1'000'003U}) {
    for (const Bytes& bytes : {Bytes(size, 255), testing::Noise(size)}) {
      const testing::GuardedBytes input(bytes);
      const auto expected = adler32(1, bytes.data(), static_cast<uInt>(size));
      EXPECT_EQ(Adler32::Calculate(input.Get()), expected) << size;
      EXPECT_EQ(Adler32::CalculatePortable(input.Get()), expected) << size;
    }
  }
}

TEST(Operator, ShiftLeftIsDefinedForEveryCount) {
  struct Case {
    std::uint32_t value;
    std::uint8_t bits;
    std::uint32_t result;
  };
  constexpr Case kCases[] = {
      {0x1234, 0, 0x1234},
      {0x1234, 16, 0x12340000},
      {1, 31, 0x80000000},
      {3, 31, 0x80000000},
      {2, 31, 0},
      {0x40000000, 1, 0x80000000},
      {0xFFFFFFFF, 4, 0xFFFFFFF0},
      {1, 32, 0},
      {1, 255, 0},
  };
  for (const Case& one : kCases) {
    EXPECT_EQ(static_cast<std::uint32_t>(
                  Operator::ShiftLeft(static_cast<std::int32_t>(one.value), one.bits)),
              one.result);
  }
}

}  // namespace
}  // namespace vellumark::encoding
