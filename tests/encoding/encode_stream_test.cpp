// SPDX-License-Identifier: MIT
#include "encoding/encode_stream.h"

#include <gtest/gtest.h>
#include <string_view>
#include <utility>
#include <zlib.h>

#include <vellumark/run_time_error.h>

#include "encoding/zlib.h"
#include "tests/encoding/generated_input.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

std::string Stream(const Bytes& data, int encoding) {
  return EncodeStream(data, static_cast<EncodingConstants>(encoding));
}

TEST(Zlib, HeaderEmptyBlockAndChecksum) {
  struct Case {
    std::uint8_t level;
    int flags;
  };
  constexpr Case kCases[] = {{1, 0x01}, {2, 0x01}, {3, 0x5E}, {4, 0x5E}, {5, 0x9C},
                             {6, 0x9C}, {7, 0xDA}, {8, 0xDA}, {9, 0xDA}};
  for (const Case& one : kCases) {
    std::string output;
    std::int32_t size = 0;
    EXPECT_TRUE(Zlib::Encode(0, {}, size, output, one.level));
    EXPECT_EQ(output, std::string("\x78") + static_cast<char>(one.flags) +
                          std::string("\x03\0\0\0\0\1", 6));
    EXPECT_EQ(size, 8);
  }
}

TEST(Zlib, RefusesWhatDeflateRefuses) {
  for (const auto& [input_size, level] :
       {std::pair(10, 0), std::pair(10, 10), std::pair(-1, 6), std::pair(11, 6)}) {
    std::string output = "left over";
    std::int32_t size = 99;
    EXPECT_FALSE(
        Zlib::Encode(input_size, Bytes(10), size, output, static_cast<std::uint8_t>(level)));
    EXPECT_EQ(size, 0);
    EXPECT_EQ(output, "");
  }
}

TEST(EncodeStream, EachEncodingHasItsEndMarker) {
  const Bytes abc = {'a', 'b', 'c'};
  EXPECT_EQ(Stream(abc, 1), "@:E^~>");
  EXPECT_EQ(Stream(abc, 2), "616263>");
  EXPECT_EQ(Stream(abc, 3), std::string("\0a\0b\0c\xC7", 7));
  EXPECT_EQ(Stream(abc, 4), std::string("\x78\x9C\x4B\x4C\x4A\x06\0\x02\x4D\x01\x27", 11));
}

TEST(EncodeStream, EmptyDataIsTheEndMarkerOrAnError) {
  EXPECT_EQ(Stream({}, 1), "~>");
  EXPECT_EQ(Stream({}, 2), ">");
  EXPECT_THROW(Stream({}, 3), RunTimeError);
  EXPECT_EQ(Stream({}, 4).size(), 8U);
}

TEST(EncodeStream, OtherEncodingsGiveNothing) {
  for (const int encoding : {-1, 0, 5, 1000}) EXPECT_EQ(Stream({1, 2, 3}, encoding), "");
}

TEST(EncodeStream, AFlateStreamIsReadByAnotherLibrary) {
  const Bytes data = testing::GeneratedInput(200'000, 4);
  const std::string stream = Stream(data, 4);
  Bytes read(data.size() + 1);
  uLongf size = read.size();
  ASSERT_EQ(uncompress(read.data(), &size, reinterpret_cast<const Bytef*>(stream.data()),
                       static_cast<uLong>(stream.size())),
            Z_OK);
  read.resize(size);
  EXPECT_EQ(read, data);
}

TEST(EncodeStream, ALineEndNeedsNoReallocation) {
  for (int encoding = 1; encoding <= 4; ++encoding) {
    std::string line = Stream(testing::GeneratedInput(50'000, 1), encoding);
    const char* const place = line.data();
    line += "\r\n";
    EXPECT_EQ(line.data(), place) << "encoding " << encoding;
  }
}

}  // namespace
}  // namespace vellumark::encoding
