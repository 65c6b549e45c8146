// SPDX-License-Identifier: MIT
#include "platform/utf8.h"

#include <gtest/gtest.h>
#include <vector>

namespace vellumark::platform {
namespace {

TEST(Utf8, EveryCharacterIsReadBackAndNoPartOfItIsOne) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character <= 0xDFFF) continue;
    std::string text;
    AppendUtf8(character, text);
    ASSERT_EQ(IsAscii(text), character < 0x80) << std::hex << std::uint32_t{character};
    Utf8Reader reader(text);
    ASSERT_EQ(reader.Next(), character) << std::hex << std::uint32_t{character};
    ASSERT_TRUE(reader.AtEnd() && !reader.SawMalformed()) << std::hex << std::uint32_t{character};
    if (text.size() == 1) continue;
    Utf8Reader cut(std::string_view(text).substr(0, text.size() - 1));
    ASSERT_EQ(cut.Next(), kReplacementCharacter) << std::hex << std::uint32_t{character};
    ASSERT_TRUE(cut.AtEnd() && cut.SawMalformed()) << std::hex << std::uint32_t{character};
  }
}

TEST(Utf8, WhatIsNotUtf8IsReplacedPartByPart) {
  struct Case {
    std::string_view bytes;
    std::u32string_view characters;
  };
  for (const Case& c : {
           Case{"a\x80z", U"a\uFFFDz"},                            // a continuation alone
           Case{"\xC0\x80\xC1\xBF", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // overlong
           Case{"\xE0\x9F\xBFz", U"\uFFFD\uFFFD\uFFFDz"},
           Case{"\xF0\x8F\xBF\xBF", U"\uFFFD\uFFFD\uFFFD\uFFFD"},
           Case{"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},            // a surrogate
           Case{"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // above U+10FFFF
           Case{"\xF5\xFF", U"\uFFFD\uFFFD"},
           Case{"\xF1\x80\x80z", U"\uFFFDz"},  // cut off: one for what there is
           Case{"\xE2\x82\xC3\xA9", U"\uFFFD\u00E9"},
           Case{"\xC3", U"\uFFFD"},
       }) {
    std::u32string read;
    Utf8Reader reader(c.bytes);
    while (!reader.AtEnd()) read += reader.Next();
    EXPECT_EQ(read, c.characters);
    EXPECT_TRUE(reader.SawMalformed());
  }
}

TEST(Utf8, AByteBeyondAsciiIsSeenAnywhere) {
  for (std::size_t size = 0; size < 20; ++size) {
    std::string text(size, 'x');
    EXPECT_TRUE(IsAscii(text));
    for (char& c : text) {
      c = '\x80';
      EXPECT_FALSE(IsAscii(text));
      c = 'x';
    }
  }
}

}  // namespace
}  // namespace vellumark::platform
