// SPDX-License-Identifier: MIT
#include "ps/type42.h"

#include <gtest/gtest.h>
#include <numeric>

#include <vellumark/run_time_error.h>

namespace vellumark::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

void Put(Bytes& font, std::size_t at, std::size_t number, std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) {
    font[at + i] = static_cast<std::uint8_t>(number >> 8 * (size - 1 - i));
  }
}

/// A font with the tables that are looked at, and glyphs of these sizes.
Bytes FontOf(const std::vector<std::size_t>& glyphs, bool wide) {
  const std::size_t size = std::accumulate(glyphs.begin(), glyphs.end(), std::size_t{0});
  const std::size_t head = 12 + 4 * 16;
  const std::size_t maxp = head + 54;
  const std::size_t loca = maxp + 6;
  const std::size_t glyf = loca + (glyphs.size() + 1) * (wide ? 4 : 2);
  Bytes font(glyf + size, 7);
  Put(font, 4, 4, 2);
  std::size_t entry = 12;
  const auto add = [&](const char* tag, std::size_t at) {
    std::copy(tag, tag + 4, font.begin() + static_cast<std::ptrdiff_t>(entry));
    Put(font, entry + 8, at, 4);
    entry += 16;
  };
  add("glyf", glyf);
  add("head", head);
  add("loca", loca);
  add("maxp", maxp);
  Put(font, head + 50, wide ? 1 : 0, 2);
  Put(font, maxp + 4, glyphs.size(), 2);
  std::size_t at = 0;
  for (std::size_t i = 0; i <= glyphs.size(); ++i) {
    Put(font, loca + i * (wide ? 4 : 2), wide ? at : at / 2, wide ? 4 : 2);
    if (i < glyphs.size()) at += glyphs[i];
  }
  return font;
}

std::vector<std::size_t> SizesOf(const Bytes& font) {
  std::vector<std::size_t> sizes;
  const std::uint8_t* at = font.data();
  for (const auto& string : ps::SfntStrings(font)) {
    EXPECT_EQ(string.data(), at) << "a byte is missing";
    at += string.size();
    sizes.push_back(string.size());
  }
  EXPECT_EQ(at, font.data() + font.size());
  return sizes;
}

TEST(Type42, AStringHasLessThan64KiBAndBeginsWithAGlyph) {
  EXPECT_EQ(SizesOf(FontOf({100, 200}, false)).size(), 1U);
  // 76 + 54 + 6 bytes and the places of the glyphs stand in front of them.
  EXPECT_EQ(SizesOf(FontOf({40000, 20000, 30000, 35000}, false)),
            (std::vector<std::size_t>{136 + 10 + 60000, 65000}));
  EXPECT_EQ(SizesOf(FontOf({30000, 30000, 30000, 30000, 30000}, true)),
            (std::vector<std::size_t>{136 + 24 + 60000, 60000, 30000}));
  EXPECT_EQ(SizesOf(FontOf({40000, 10001, 9999, 30000}, true)),
            (std::vector<std::size_t>{136 + 20 + 60000, 30000}))
      << "a string of an odd size cannot be padded";
  EXPECT_EQ(SizesOf(FontOf({40000, 20001, 9999, 30000}, true)),
            (std::vector<std::size_t>{136 + 20 + 40000, 60000}));
  EXPECT_EQ(SizesOf(FontOf({30000, 65534, 100}, true)),
            (std::vector<std::size_t>{136 + 16 + 30000, 65534, 100}));
}

TEST(Type42, AFontWithoutGlyphsIsCutBetweenItsTables) {
  Bytes font(100'000);
  Put(font, 4, 1, 2);
  Put(font, 12 + 8, 50'000, 4);
  EXPECT_EQ(SizesOf(font), (std::vector<std::size_t>{50'000, 50'000}));
}

TEST(Type42, AFontThatCannotBeCutIsAFault) {
  EXPECT_THROW(SizesOf(FontOf({100, 65536, 100}, true)), RunTimeError);
  EXPECT_THROW(SizesOf(FontOf({60000, 65535}, true)), RunTimeError);
  EXPECT_THROW(SizesOf(Bytes(5)), RunTimeError);
  EXPECT_THROW(SizesOf(Bytes(65535)), RunTimeError) << "nothing to cut at";
  Bytes beyond = FontOf({100}, true);
  Put(beyond, 12 + 8, beyond.size() + 1, 4);
  EXPECT_THROW(SizesOf(beyond), RunTimeError);
  Bytes many = FontOf({100}, true);
  Put(many, 4, 65535, 2);
  EXPECT_THROW(SizesOf(many), RunTimeError);
}

}  // namespace
}  // namespace vellumark::tests
