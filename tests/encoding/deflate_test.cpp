// SPDX-License-Identifier: MIT
#include "encoding/deflate.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string_view>
#include <zlib.h>

#include "tests/encoding/generated_input.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

std::string Compress(std::span<const std::uint8_t> input, int level) {
  std::string output;
  std::int32_t size = -1;
  EXPECT_TRUE(Deflate::Encode(static_cast<std::int32_t>(input.size()), input, size, output,
                              static_cast<std::uint8_t>(level)));
  EXPECT_EQ(static_cast<std::size_t>(size), output.size());
  EXPECT_GE(output.capacity(), output.size() + 2);
  return output;
}

std::string Compress(std::string_view text, int level) {
  return Compress({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, level);
}

// By zlib; empty unless the data ends where the stream does.
Bytes Inflate(const std::string& compressed, std::size_t size) {
  Bytes bytes(size + 1);  // one more than expected, to see a surplus
  z_stream stream{};
  inflateInit2(&stream, -15);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(compressed.data()));
  stream.avail_in = static_cast<uInt>(compressed.size());
  stream.next_out = bytes.data();
  stream.avail_out = static_cast<uInt>(bytes.size());
  const int result = inflate(&stream, Z_FINISH);
  bytes.resize(result == Z_STREAM_END && stream.avail_in == 0 ? stream.total_out : 0);
  inflateEnd(&stream);
  return bytes;
}

std::string Hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    text += kDigits[static_cast<std::uint8_t>(byte) / 16U];
    text += kDigits[static_cast<std::uint8_t>(byte) % 16U];
  }
  return text;
}

void ExpectRoundTrip(const Bytes& input, std::string_view what) {
  for (int level = 1; level <= 9; ++level) {
    EXPECT_EQ(Inflate(Compress(input, level), input.size()), input)
        << what << ", " << input.size() << " bytes, level " << level;
  }
}

TEST(Deflate, AnEmptyInputIsOneFixedBlockWithTheEndCodeAlone) {
  for (int level = 1; level <= 9; ++level) EXPECT_EQ(Hex(Compress("", level)), "0300");
}

TEST(Deflate, ShortInputsAreFixedBlocks) {
  // "a" is symbol 97, code 0x91 in eight bits: 1 (final), 1 0 (fixed), 1 0 0 1 0 0 0 1, 0000000.
  EXPECT_EQ(Hex(Compress("a", 6)), "4B0400");
  // The first byte is never matched, so four equal bytes are four literals ...
  EXPECT_EQ(Hex(Compress("aaaa", 6)), "4B4C4C4C0400");
  // ... and five are two and a match: length 3 is code 257 (0000001), distance 1 is 00000.
  EXPECT_EQ(Hex(Compress("aaaaa", 6)), "4B4C040200");
}

TEST(Deflate, NoiseIsAStoredBlock) {
  const Bytes noise = testing::Noise(300);
  const std::string stored = Compress(noise, 6);
  EXPECT_EQ(Hex(stored.substr(0, 5)), "012C01D3FE");  // final, 300, 65535 - 300
  EXPECT_TRUE(std::equal(noise.begin(), noise.end(), stored.begin() + 5,
                         [](std::uint8_t a, char b) { return a == static_cast<std::uint8_t>(b); }));
}

TEST(Deflate, RefusesOtherLevelsAndSizesThatCannotBe) {
  const Bytes input(10);
  struct Refused {
    std::int32_t size;
    std::uint8_t level;
  };
  for (const Refused refused : {Refused{10, 0}, {10, 10}, {10, 255}, {-1, 6}, {11, 6}}) {
    std::string output = "left over";
    std::int32_t size = 99;
    EXPECT_FALSE(Deflate::Encode(refused.size, input, size, output, refused.level));
    EXPECT_EQ(size, 0);
    EXPECT_EQ(output, "");
  }
}

// Sizes and checksums come from a second model of the same decisions, not from this program.
TEST(Deflate, TheBytesAreTheSameEverywhere) {
  struct Expected {
    std::uint32_t seed;
    std::uint32_t longest_noise;
    int level;
    std::size_t size;
    unsigned long crc;
  };
  constexpr Expected kExpected[] = {
      {1, 60, 1, 88975, 0x5D1323F2},     {1, 60, 2, 87596, 0xB612B49B},
      {1, 60, 3, 86149, 0xBBD4B7A9},     {1, 60, 4, 82582, 0xE60A7519},
      {1, 60, 5, 81618, 0x56C3C471},     {1, 60, 6, 80613, 0x68E62116},
      {1, 60, 7, 80396, 0x2BC2FE1A},     {1, 60, 8, 80058, 0xC4FC7D84},
      {1, 60, 9, 80040, 0x1C725C1C},     {2, 3000, 1, 246019, 0x21770C03},
      {2, 3000, 2, 245642, 0x6DCA6901},  {2, 3000, 3, 245381, 0xB9CA85B8},
      {2, 3000, 4, 244767, 0xEDFBB178},  {2, 3000, 5, 244601, 0xD59269D1},
      {2, 3000, 6, 244521, 0x95FF63BD},  {2, 3000, 7, 244510, 0x3809BC2C},
      {2, 3000, 8, 244494, 0x8EE4BE67},  {2, 3000, 9, 244494, 0xEE43DF1E},
      {3, 60000, 1, 297364, 0xDE12E8DB}, {3, 60000, 2, 297364, 0x13A499B7},
      {3, 60000, 3, 297357, 0x865B2E99}, {3, 60000, 4, 297298, 0x219240E3},
      {3, 60000, 5, 297301, 0x841A9E63}, {3, 60000, 6, 297301, 0x841A9E63},
      {3, 60000, 7, 297301, 0x841A9E63}, {3, 60000, 8, 297301, 0x841A9E63},
      {3, 60000, 9, 297301, 0x841A9E63},
  };
  for (const Expected& expected : kExpected) {
    const std::string output = Compress(
        testing::GeneratedInput(300'000, expected.seed, expected.longest_noise), expected.level);
    const auto crc =
        crc32(0, reinterpret_cast<const Bytef*>(output.data()), static_cast<uInt>(output.size()));
    EXPECT_EQ(output.size(), expected.size);
    EXPECT_EQ(crc, expected.crc) << "seed " << expected.seed << " level " << expected.level;
  }
}

// Among many small inputs are some for which a bit more or less decides the kind of their block.
TEST(Deflate, SmallInputsAreTheSameEverywhereToo) {
  testing::Random random(1);
  unsigned long crc = 0;
  std::size_t sum = 0;
  for (std::uint32_t seed = 0; seed < 4000; ++seed) {
    const std::size_t size = random.Next() % (seed % 20 == 0 ? 20000 : 400);
    const Bytes input = testing::GeneratedInput(size, seed, 1 + random.Next() % 100);
    const std::string output = Compress(input, 1 + static_cast<int>(seed % 9));
    sum += output.size();
    crc =
        crc32(crc, reinterpret_cast<const Bytef*>(output.data()), static_cast<uInt>(output.size()));
  }
  // By a second model of the same decisions, as above.
  EXPECT_EQ(sum, 1044198U);
  EXPECT_EQ(crc, 0xE38CA79C);
}

// A string that occurs twice, and between them `others` that share its first three bytes.
Bytes BehindOthers(std::size_t others) {
  testing::Random random(1);
  Bytes bytes = {'-', 'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'};
  for (std::size_t i = 0; i < others; ++i) {
    bytes.insert(bytes.end(), {'a', 'b', 'c'});
    for (int n = 0; n < 3; ++n) {
      bytes.push_back(static_cast<std::uint8_t>(128 + random.Next() % 128));
    }
  }
  bytes.insert(bytes.end(), {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'});
  return bytes;
}

// A string that has a match of `length` bytes, and from its second byte on one of `longer`, before
// which `others` share its first three bytes.
Bytes LongerFromTheNext(std::size_t length, std::size_t longer, std::size_t others) {
  const Bytes text = testing::Noise(320, 9);
  Bytes bytes = {0};
  const auto add = [&](std::ptrdiff_t from, std::size_t size) {
    bytes.insert(bytes.end(), text.begin() + from,
                 text.begin() + from + static_cast<std::ptrdiff_t>(size));
  };
  add(1, longer);
  bytes.push_back(1);
  testing::Random random(3);
  for (std::size_t i = 0; i < others; ++i) {
    add(1, 3);
    for (int n = 0; n < 3; ++n) bytes.push_back(static_cast<std::uint8_t>(random.Next() % 256));
  }
  add(0, length);
  bytes.push_back(2);
  add(0, 310);
  return bytes;
}

TEST(Deflate, TheHighestLevelLooksAtAllItMayAndNoMore) {
  const auto expect = [](const char* what, const Bytes& input, std::size_t size,
                         unsigned long crc) {
    const std::string output = Compress(input, 9);
    EXPECT_EQ(output.size(), size) << what;
    EXPECT_EQ(
        crc32(0, reinterpret_cast<const Bytef*>(output.data()), static_cast<uInt>(output.size())),
        crc)
        << what;
  };
  // By a second model of the same decisions, as above.
  expect("the last of 4,096 candidates", BehindOthers(4095), 14492, 0x2628655E);
  expect("one too many", BehindOthers(4096), 14494, 0x50CD0D4B);
  expect("31 bytes are not good enough", LongerFromTheNext(31, 100, 3000), 12108, 0x66EEF1F2);
  expect("32 are: a quarter is looked at", LongerFromTheNext(32, 100, 3000), 12109, 0xAC4A47F7);
  expect("257 bytes can be bettered", LongerFromTheNext(257, 300, 0), 342, 0x55EBFBD5);
  expect("258 cannot", LongerFromTheNext(258, 300, 0), 341, 0x55A03289);
}

// A full symbol buffer, a stored block's limit and the window's moves.
TEST(Deflate, SizesAroundTheLimitsInflateBack) {
  for (const std::size_t size : {1U, 2U, 3U, 4U, 258U, 259U, 8192U, 16383U, 16384U, 32766U, 32767U,
                                 65273U, 65274U, 65275U, 65535U, 65536U, 65537U, 98042U, 98043U}) {
    ExpectRoundTrip(testing::Noise(size), "noise");
    ExpectRoundTrip(Bytes(size, 7), "one run");
    ExpectRoundTrip(testing::GeneratedInput(size, 5), "mixed");
  }
}

TEST(Deflate, CopiesFromFarBackInflateBackAndFitTheRoomForTheWorstCase) {
  for (const std::uint32_t longest : {3U, 4U, 20U, 5000U}) {
    const Bytes input = testing::FarCopies(400'000, longest, longest);
    ExpectRoundTrip(input, "copies");
    EXPECT_LE(Compress(input, 1).size() + 16, Deflate::GreatestSize(input.size()));
  }
}

TEST(Deflate, ReadsNothingBehindTheInput) {
  for (std::size_t size = 0; size < 600; size += size < 20 ? 1 : 29) {
    for (const Bytes& bytes : {Bytes(size, 1), testing::GeneratedInput(size, 3)}) {
      const testing::GuardedBytes input(bytes);
      for (const int level : {1, 4, 6, 9}) {
        EXPECT_EQ(Inflate(Compress(input.Get(), level), size), bytes);
      }
    }
  }
}

}  // namespace
}  // namespace vellumark::encoding
