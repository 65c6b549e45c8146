// SPDX-License-Identifier: MIT
#include <algorithm>
#include <gtest/gtest.h>
#include <string_view>

#include "encoding/ascii85.h"
#include "encoding/ascii_hex.h"
#include "encoding/base85_groups.h"
#include "encoding/hex_digits.h"
#include "fuzz/base85_decoder.h"
#include "tests/encoding/generated_input.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

template <typename Encoder>
std::string Encode(const Bytes& input) {
  std::string output;
  std::int32_t size = -1;
  const testing::GuardedBytes guarded(input);
  EXPECT_TRUE(
      Encoder::Encode(static_cast<std::int32_t>(input.size()), guarded.Get(), size, output));
  EXPECT_EQ(static_cast<std::size_t>(size), output.size());
  EXPECT_GE(output.capacity(), output.size() + 2);
  EXPECT_EQ(Encoder::TextSize(guarded.Get()), output.size());
  return output;
}

TEST(Ascii85, GroupsRestsAndZeros) {
  struct Case {
    Bytes input;
    std::string_view output;
  };
  const Case cases[] = {
      {{}, "~>"},
      {{0, 0, 0, 0}, "z~>"},
      {{0}, "!!~>"},  // a rest of zeros is not "z"
      {{0, 0, 0}, "!!!!~>"},
      {{0, 0, 0, 1}, "!!!!\"~>"},
      {{255, 255, 255, 255}, "s8W-!~>"},
      {{'M', 'a', 'n'}, "9jqo~>"},
      {{'M', 'a', 'n', ' '}, "9jqo^~>"},
      {{'M', 'a', 'n', ' ', 0, 0, 0, 0}, "9jqo^z~>"},
      {{'M', 'a', 'n', ' ', 0}, "9jqo^!!~>"},
      {{255}, "rr~>"},
  };
  for (const Case& one : cases) EXPECT_EQ(Encode<Ascii85>(one.input), one.output);
}

// Past the blocks of a few thousand characters that the text is made in.
TEST(Ascii85, LongDataComesBack) {
  for (const std::size_t size : {6551U, 6552U, 6553U, 100'003U}) {
    const Bytes input = testing::GeneratedInput(size, 6);
    EXPECT_EQ(fuzz::DecodeBase85(Encode<Ascii85>(input)), input);
  }
}

void ExpectSameGroups(const Bytes& groups) {
  const auto size = groups.size() / 4 * 5;
  Bytes portable(size);
  portable.resize(static_cast<std::size_t>(WriteBase85GroupsPortable(groups, portable.data()) -
                                           portable.data()));
  Bytes vector(portable.size());  // not a byte more
  ASSERT_EQ(WriteBase85Groups(groups, vector.data()), vector.data() + vector.size());
  ASSERT_EQ(vector, portable);
}

// Where a digit changes: beside the multiples of 7225, which is 85 x 85.
TEST(Ascii85, VectorAndPortableGroupsAgree) {
  Bytes groups;
  for (std::uint64_t value = 1; value <= UINT32_MAX; value += 7225) {
    for (const std::uint64_t group : {value - 1, value, value + 84}) {
      for (int shift = 24; shift >= 0; shift -= 8) {
        groups.push_back(static_cast<std::uint8_t>(group >> shift));
      }
    }
  }
  ExpectSameGroups(groups);
  for (std::size_t count = 0; count < 20; ++count) {
    Bytes noise = testing::Noise(4 * count);
    ExpectSameGroups(noise);
    for (std::size_t zero = 0; zero < count; ++zero) {
      std::fill_n(noise.begin() + static_cast<std::ptrdiff_t>(4 * zero), 4, std::uint8_t{0});
      ExpectSameGroups(noise);
    }
  }
}

TEST(AsciiHex, UpperCaseDigitsAndAnEndMarker) {
  EXPECT_EQ(Encode<AsciiHex>({}), ">");
  EXPECT_EQ(Encode<AsciiHex>({0x00, 0xAB, 0xFF}), "00ABFF>");
  EXPECT_EQ(Encode<AsciiHex>({0x90, 0x9A, 0xA9}), "909AA9>");
}

TEST(AsciiHex, VectorAndPortableDigitsAgree) {
  for (std::size_t size = 0; size < 10'000; size = size * 2 + 3) {
    const Bytes input = testing::Noise(size);
    std::string portable(2 * size, '?');
    WriteHexDigitsPortable(input, reinterpret_cast<std::uint8_t*>(portable.data()));
    EXPECT_EQ(Encode<AsciiHex>(input), portable + '>');
  }
}

template <typename Encoder>
void ExpectRefusesSizesThatCannotBe() {
  for (const std::int32_t input_size : {-1, 11}) {
    std::string output = "left over";
    std::int32_t size = 99;
    EXPECT_FALSE(Encoder::Encode(input_size, Bytes(10), size, output));
    EXPECT_EQ(size, 0);
    EXPECT_EQ(output, "");
  }
}

TEST(TextEncoders, RefuseSizesThatCannotBe) {
  ExpectRefusesSizesThatCannotBe<Ascii85>();
  ExpectRefusesSizesThatCannotBe<AsciiHex>();
}

}  // namespace
}  // namespace vellumark::encoding
