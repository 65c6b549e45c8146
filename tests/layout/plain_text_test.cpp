// SPDX-License-Identifier: MIT
#include "layout/plain_text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "layout/text_encoding.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::layout {
namespace {

using encoding::testing::GuardedBytes;
using ReadFunction = PlainText (*)(std::string_view, const Font&) noexcept;

// One character after the other, as the tables of a font say.
PlainText ReadOneByOne(std::string_view text, const Font& font) {
  const CodeWidths& widths = WidthsOf(font, TextEncoding::WinAnsi);
  PlainText read{.plain = true, .literal = true};
  for (const char c : text) {
    if (c < ' ' || c > '~') return {};
    if (c == '(' || c == ')' || c == '\\') read.literal = false;
    read.sum += widths[static_cast<std::uint8_t>(c)];
  }
  return read;
}

void ExpectRead(std::string_view text, const Font& font) {
  const GuardedBytes guarded(std::vector<std::uint8_t>(text.begin(), text.end()));
  const auto bytes = guarded.Get();
  const std::string_view view(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const PlainText expected = ReadOneByOne(text, font);
  for (const ReadFunction function : {&ReadPlain, &ReadPlainPortable}) {
    const PlainText read = function(view, font);
    ASSERT_EQ(read.plain, expected.plain) << text;
    ASSERT_EQ(read.literal, expected.literal) << text;
    ASSERT_EQ(read.sum, expected.sum) << text;
  }
}

TEST(PlainText, TheSameWithAndWithoutVectors) {
  for (const auto number :
       {FontNumberConstants::Courier, FontNumberConstants::Helvetica, FontNumberConstants::Times}) {
    for (const auto style : {FontStyleConstants::Regular, FontStyleConstants::BoldItalic}) {
      const Font font{number, 10, style, {}};
      std::string text;
      for (std::size_t size = 0; size < 200; ++size) {
        ExpectRead(text, font);
        text += static_cast<char>('*' + size * 7 % 50);
      }
      ExpectRead(std::string(70'000, '('), font);
      // Each byte at some place of 200, the others without anything to escape.
      for (int byte = 0; byte < 256; ++byte) {
        std::string other = text;
        other[static_cast<std::size_t>(byte) * 3 % other.size()] = static_cast<char>(byte);
        ExpectRead(other, font);
      }
    }
  }
  EXPECT_FALSE(ReadPlain("a", {FontNumberConstants::Symbol, 10, {}, {}}).plain);
}

}  // namespace
}  // namespace vellumark::layout
