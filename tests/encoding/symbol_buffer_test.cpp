// SPDX-License-Identifier: MIT
#include "encoding/symbol_buffer.h"

#include <gtest/gtest.h>
#include <memory>

namespace vellumark::encoding {
namespace {

// Whether a half-full block of so many matches of this distance ends, at this size.
bool EndsEarly(std::size_t matches, std::int32_t distance, std::int32_t block_bytes,
               bool cuts_early = true) {
  const auto buffer = std::make_unique<SymbolBuffer>(cuts_early);
  bool ends = false;
  for (std::size_t i = 0; i < SymbolBuffer::kEarlyCut; ++i) {
    EXPECT_FALSE(ends) << i;
    ends = i < matches ? buffer->AddMatch(3, distance, block_bytes)
                       : buffer->AddLiteral('a', block_bytes);
  }
  return ends;
}

// A literal is estimated as 8 bits, a distance as 5 and its extra bits: 10,751 bytes for 4,095
// matches among 8,192 symbols, 8,210 bytes for 8 whose distance has 13 extra bits.
TEST(SymbolBuffer, AHalfFullBlockEndsIfItHasFewMatchesAndIsBelowHalfItsBytes) {
  EXPECT_TRUE(EndsEarly(4095, 1, 21504));
  EXPECT_FALSE(EndsEarly(4095, 1, 21503)) << "not below half";
  EXPECT_FALSE(EndsEarly(4096, 1, 30000)) << "half are matches";
  EXPECT_TRUE(EndsEarly(8, 32768, 16422));
  EXPECT_FALSE(EndsEarly(8, 32768, 16421));
  EXPECT_FALSE(EndsEarly(8, 32768, 30000, false));
}

TEST(SymbolBuffer, AFullBlockEnds) {
  const auto buffer = std::make_unique<SymbolBuffer>(true);
  for (std::size_t i = 1; i < SymbolBuffer::kFull; ++i) {
    ASSERT_FALSE(buffer->AddLiteral('a', 100)) << i;
  }
  EXPECT_TRUE(buffer->AddLiteral('a', 100));
}

}  // namespace
}  // namespace vellumark::encoding
