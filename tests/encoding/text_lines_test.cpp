// SPDX-License-Identifier: MIT
#include "encoding/text_lines.h"

#include <gtest/gtest.h>
#include <vector>

#include "encoding/ascii85.h"
#include "encoding/ascii_hex.h"
#include "tests/encoding/generated_input.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

// The lines joined, after a look at each: none too long, empty or beginning with "%".
std::string Joined(const std::string& text) {
  std::string joined;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find("\r\n", start), text.size());
    const std::string line = text.substr(start, end - start);
    EXPECT_LE(line.size(), 80U);
    EXPECT_FALSE(line.empty());
    EXPECT_NE(line[0], '%');
    joined += line[0] == ' ' ? line.substr(1) : line;
    start = end + 2;
  }
  EXPECT_GE(text.capacity(), text.size() + 2);
  return joined;
}

template <class Encoder>
std::string Whole(const Bytes& data) {
  std::string text;
  std::int32_t size = 0;
  Encoder::Encode(static_cast<std::int32_t>(data.size()), data, size, text);
  return text;
}

TEST(TextLines, AreTheTextOfTheEncodersInLines) {
  for (const std::size_t size :
       {0U, 1U, 39U, 40U, 41U, 62U, 63U, 64U, 65U, 6399U, 6400U, 6401U, 40'000U}) {
    const Bytes data = testing::GeneratedInput(size, 5);
    EXPECT_EQ(Joined(EncodeAscii85Lines(data, "\r\n")), Whole<Ascii85>(data)) << size;
    EXPECT_EQ(Joined(EncodeAsciiHexLines(data, "\r\n")), Whole<AsciiHex>(data)) << size;
  }
}

// Per cent signs around and over the place where a line would end; four bytes of them are "%%%%%".
TEST(TextLines, NoLineBeginsAsAComment) {
  Bytes per_cents;  // 4 in base 85 five times: 4 * (85^5 - 1) / 84
  for (const int byte : {0x0C, 0x98, 0x00, 0xB4})
    per_cents.push_back(static_cast<std::uint8_t>(byte));
  ASSERT_EQ(Whole<Ascii85>(per_cents), "%%%%%~>");
  for (std::size_t before = 0; before < 100; ++before) {
    for (const std::size_t count : {1U, 2U, 15U, 16U, 17U, 40U}) {
      Bytes data = testing::Noise(before, 3);
      data.resize((before + 3) / 4 * 4, 1);
      for (std::size_t i = 0; i < count; ++i)
        data.insert(data.end(), per_cents.begin(), per_cents.end());
      ASSERT_EQ(Joined(EncodeAscii85Lines(data, "\r\n")), Whole<Ascii85>(data));
    }
  }
}

}  // namespace
}  // namespace vellumark::encoding
