// SPDX-License-Identifier: MIT
#include "layout/lost_characters.h"

#include "platform/utf8.h"
#include "tests/document_fixture.h"

namespace vellumark::tests {
namespace {

template <class AnyDocument>
class LostCharacters : public DocumentTest<AnyDocument> {
 protected:
  /// What is lost of a text in a document of its own.
  std::string LostOf(std::string_view text, bool conforming,
                     FontNumberConstants font = FontNumberConstants::Times) {
    this->doc.Conforming(conforming);
    this->Start();
    this->Font(font, 10);
    EXPECT_TRUE(this->doc.WriteText(text));
    std::string lost = this->doc.LostCharacters();
    this->doc.Flush();
    EXPECT_EQ(this->doc.LostCharacters(), lost) << "until the next Create";
    return lost;
  }
};

using Classes = testing::Types<PDF, PS>;
TYPED_TEST_SUITE(LostCharacters, Classes);

TYPED_TEST(LostCharacters, OfAClassicTextAreThoseThatReadersShowOtherwise) {
  EXPECT_EQ(this->LostOf("plain '`\"", false), "");
  EXPECT_EQ(this->LostOf("\u00FC, \u00E9, \u00FC and \u0434", false), "\u00FC\u00E9\u0434");
  EXPECT_EQ(this->LostOf("\u00A1\u00A2\u00A3\u00A5\u00A7\u00AB\u00B6\u00BB\u00BF", false), "")
      << "codes that the fonts have in common with the code page";
  EXPECT_EQ(this->LostOf("a\tb\x7F\u0080", false), "\t\x7F\u0080");
  EXPECT_EQ(this->LostOf("\u00E9\u0434", false, FontNumberConstants::Symbol), "\u0434");
}

TYPED_TEST(LostCharacters, OfAConformingTextAreThoseWithoutAGlyph) {
  EXPECT_EQ(this->LostOf("\u00FC\u00E9\t\u20AC\u0159\uFB01\u2211\u200B", true), "");
  EXPECT_EQ(this->LostOf("\u0434, \u0434 and \U0001F600\x01\xFF", true),
            "\u0434\U0001F600\x01\uFFFD");
  EXPECT_EQ(this->LostOf("\u03B1\u2192", true, FontNumberConstants::Symbol), "");
  EXPECT_EQ(this->LostOf("\u03B1\u2713", true, FontNumberConstants::ZapfDingbats), "\u03B1");
}

TYPED_TEST(LostCharacters, AreThoseOfWhatWasWritten) {
  for (const bool conforming : {false, true}) {
    this->doc.Conforming(conforming);
    this->Start();
    EXPECT_FALSE(this->doc.WriteText(std::string(600, 'x') + "\u0434"));
    EXPECT_EQ(this->doc.LostCharacters(), "") << "a text that was refused";
    EXPECT_TRUE(this->doc.WriteTitle("\u0431"));
    EXPECT_TRUE(this->doc.WriteMultiText("\u0432 \u0433 \u0432", 0, kNoAlignment, true, 20));
    EXPECT_EQ(this->doc.LostCharacters(), "\u0431\u0432\u0433");
    EXPECT_FALSE(this->doc.WriteMultiText("\u0436 " + std::string(600, 'x')));
    EXPECT_EQ(this->doc.LostCharacters(), "\u0431\u0432\u0433");
    this->doc.Flush();
    ASSERT_TRUE(this->doc.Create("doc"));
    EXPECT_EQ(this->doc.LostCharacters(), "") << "of a new document";
    this->doc.Flush();
  }
}

TEST(LostCharactersOfAllPlaces, AreEachListedOnceAndTakenBackAlone) {
  layout::LostCharacters lost;
  std::string expected;
  std::string half;
  const auto add_all = [&] {
    for (char32_t character = 0x100; character < 0x400; ++character) lost.Add(character);
  };
  for (char32_t character = 0x100; character < 0x400; ++character) {
    if (character == 0x2A0) half = expected;
    platform::AppendUtf8(character, expected);
  }
  add_all();
  add_all();
  EXPECT_EQ(lost.Text(), expected);
  lost.RollBack(half.size());
  EXPECT_EQ(lost.Text(), half);
  add_all();
  EXPECT_EQ(lost.Text(), expected);
}

}  // namespace
}  // namespace vellumark::tests
