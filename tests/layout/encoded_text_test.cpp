// SPDX-License-Identifier: MIT
#include "layout/encoded_text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "layout/lost_characters.h"
#include "tests/encoding/guarded_bytes.h"

namespace vellumark::layout {
namespace {

using enum FontNumberConstants;
using enum FontStyleConstants;

constexpr Font kTimes = {Times, 10, Regular, {}};
constexpr Font kHelvetica = {Helvetica, 10, Regular, {}};
constexpr Font kSymbol = {Symbol, 10, Regular, {}};
constexpr Font kDingbats = {ZapfDingbats, 10, Regular, {}};

// The runs as "encoding:codes", codes beyond ASCII as <hex>, then the lost characters behind "|".
std::string Encoded(std::string_view utf8, const Font& font = kTimes) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  EncodedText text;
  EncodeText(utf8, font, text);
  std::string shown;
  std::int32_t width = 0;
  for (const EncodedRun& run : text.Runs()) {
    if (!shown.empty()) shown += ' ';
    shown += "WESZ"[static_cast<int>(run.encoding)];
    shown += ':';
    for (const char c : run.bytes) {
      const auto code = static_cast<unsigned char>(c);
      shown += code >= ' ' && code <= '~' ? std::string(1, c)
                                          : std::string{'<', kHex[code / 16], kHex[code % 16], '>'};
    }
    width += run.width;
  }
  EXPECT_EQ(text.Width(), width) << utf8;
  EXPECT_EQ(MeasureText(utf8, font), width) << utf8;
  EXPECT_EQ(MeasureText(utf8, font), width) << utf8;
  LostCharacters lost;
  lost.Add(text.Lost());
  return lost.Empty() ? shown : shown + '|' + lost.Text();
}

TEST(EncodedText, ARunIsAsLongAsItsEncodingHasTheCharacters) {
  EXPECT_EQ(Encoded(""), "");
  EXPECT_EQ(Encoded("plain (ASCII) ~ text"), "W:plain (ASCII) ~ text");
  EXPECT_EQ(Encoded("5 €, été"), "W:5 <80>, <E9>t<E9>");
  // A run that is right in both encodings goes over as a whole, and stays there.
  EXPECT_EQ(Encoded("Bücher und Dvořák"), "E:B<FC>cher und Dvo<F8><E1>k");
  EXPECT_EQ(Encoded("1 € für Dvořák, § 5"), "E:1 <80> f<FC>r Dvo<F8><E1>k, <A7> 5");
  EXPECT_EQ(Encoded("Señor Dvořák"), "W:Se<F1>or Dvo E:<F8><E1>k");
  EXPECT_EQ(Encoded("ağ ñ ş"), "E:a<83>  W:<F1>  E:<BA>");
}

TEST(EncodedText, EveryLanguageOfTheEncodingNeedsOneRun) {
  for (const std::string_view letters :
       {"„Zażółć gęślą jaźń” – ĄĆĘŁŃÓŚŹŻ", "„Příliš žluťoučký kůň úpěl ďábelské ódy“ ŇŘŤŮ",
        "ĺľŕôäď ĹĽŔ", "árvíztűrő tükörfúrógép ÁÍÓÖŐÚÜŰ", "»čćđšž« ČĆĐŠŽ", "ăâîșț ĂÂÎȘȚ şţ ŞŢ",
        "ğıİşçöüâîû ĞIİŞÇÖÜÂÎÛ"}) {
    EncodedText text;
    EncodeText(letters, kTimes, text);
    EXPECT_EQ(text.Runs().size(), 1U) << letters;
    EXPECT_TRUE(text.Lost().empty()) << letters;
  }
}

// A reader gets back from the encoding's characters what was written.
TEST(EncodedText, EveryCharacterOfTheTablesIsFoundAgain) {
  int characters = 0;
  for (char32_t c = 0x20; c <= 0xFFFF; ++c) {
    LostCharacters one;  // which knows UTF-8
    one.Add(c);
    EncodedText text;
    EncodeText(one.Text(), kTimes, text);
    if (!text.Lost().empty() || text.Bytes().empty()) continue;
    const auto code = static_cast<unsigned char>(text.Bytes()[0]);
    const CodedGlyph& glyph = GlyphsOf(text.Runs()[0].encoding)[code];
    if (glyph.character == ' ' && c != ' ') continue;  // a space of another width
    EXPECT_EQ(char32_t{glyph.character}, c);
    EXPECT_GT(text.Width(), 0) << glyph.name;
    ++characters;
  }
  EXPECT_EQ(characters, 324);
}

TEST(EncodedText, LineEndsAndSpacesAreBlanksAndTheInvisibleIsNothing) {
  EXPECT_EQ(Encoded("a\r\nb\nc\rd\te\v\f!"), "W:a b c d e  !");
  EXPECT_EQ(Encoded("a\r\r\n\nb"), "W:a   b");
  EXPECT_EQ(Encoded("a\u2028b\u2029c\u0085d\u2009e\u3000f"), "W:a b c d e f");
  EXPECT_EQ(Encoded("\uFEFFa\u200Bb\u200Cc\u200Dd\u200Ee\uFE0F"), "W:abcde");
  EXPECT_EQ(Encoded("a\u00A0b\u00ADc\u2011d"), "E:a<A0>b<AD>c<11>d");
}

TEST(EncodedText, LostCharactersAreToldOnceAndShownAsQuestionMarks) {
  EXPECT_EQ(Encoded("да, да 😀"), "W:??, ?? ?|да😀");
  EXPECT_EQ(Encoded(std::string("a\0b\x07\x7F", 5)), "W:a?b??|" + std::string("\0\x07\x7F", 3));
  EXPECT_EQ(Encoded("a\xFF"
                    "b\xC3"),
            "W:a?b?|\uFFFD");
  EXPECT_EQ(Encoded("Ω", kDingbats), "Z: |Ω");
}

TEST(EncodedText, MarksComposeWithTheirLetter) {
  EXPECT_EQ(Encoded("e\u0301"), "W:<E9>");
  EXPECT_EQ(Encoded("Dvor\u030Ca\u0301k"), "E:Dvo<F8><E1>k");
  EXPECT_EQ(Encoded("t\u0326 t\u0327"), Encoded("ț ţ"));
  EXPECT_EQ(Encoded("=\u0338"), Encoded("≠"));
  EXPECT_EQ(Encoded("x\u0301 e\u0302\u0301"), "W:x? <EA>?|\u0301");
  EXPECT_EQ(Encoded("\u0301e"), "W:?e|\u0301");
}

TEST(EncodedText, SymbolAndDingbatsTakeCodesAndCharacters) {
  EXPECT_EQ(Encoded("abc ×", kSymbol), "S:abc <D7>");
  EXPECT_EQ(Encoded("α\u200Bβ", kSymbol), "S:ab");
  EXPECT_EQ(Encoded("αβ→∀€\u00A0Ж", kSymbol), "S:ab<AE>\"<A0> ?|Ж");
  EXPECT_EQ(Encoded("\u2122", kSymbol), "S:<D4>");  // the first of two codes
  EXPECT_EQ(Encoded("4✔❶\n", kDingbats), "Z:44<B6> ");
  EXPECT_EQ(MeasureText("\u2022", kSymbol), 460);
  EXPECT_EQ(MeasureText("\u2022", {Symbol, 10, FontStyleConstants{9}, {}}), 460);
}

TEST(EncodedText, WidthsAreThoseOfTheFace) {
  EXPECT_EQ(MeasureText("Aé ", kHelvetica), 667 + 556 + 278);
  EXPECT_EQ(MeasureText("ď", {Times, 10, Bold, {}}), 672);
  EXPECT_EQ(MeasureText("ď", {Times, 10, BoldItalic, {}}), 608);
  EXPECT_EQ(MeasureText("ď", {Helvetica, 10, Italic, {}}), MeasureText("ď", kHelvetica));
  EXPECT_EQ(MeasureText("ď?", {Courier, 10, BoldItalic, {}}), 1200);
  EXPECT_EQ(MeasureText("text", {Times, 10, FontStyleConstants{5}, {}}), 0);
  EXPECT_EQ(MeasureText("text", Font{}), 0);
}

// The plain characters are looked at eight at a time: what is none is found at every place.
TEST(EncodedText, AnyCharacterAtAnyPlace) {
  for (std::size_t size = 1; size <= 20; ++size) {
    for (std::size_t place = 0; place < size; ++place) {
      for (const char odd : {'\x1F', '\x7F', '\x80', '\xFF'}) {
        std::string text(size, ' ');
        text[place] = odd;
        std::string expected(size, ' ');
        expected[place] = '?';
        EncodedText encoded;
        EncodeText(text, kTimes, encoded);
        ASSERT_EQ(encoded.Bytes(), expected) << place;
        ASSERT_EQ(encoded.Lost().size(), 1U);
      }
    }
  }
}

TEST(EncodedText, ACharacterThatIsCutOffIsNotReadBeyondTheText) {
  for (const std::string_view cut :
       {"\xC3", "\xDF", "\xE0\xA0", "\xE2", "\xE2\x82", "\xF0\x9F\x98", "\xF1", "\xF4\x8F"}) {
    const std::vector<std::uint8_t> bytes(cut.begin(), cut.end());
    const encoding::testing::GuardedBytes guarded(bytes);
    const auto* const at = reinterpret_cast<const char*>(guarded.Get().data());
    EncodedText encoded;
    EncodeText({at, cut.size()}, kTimes, encoded);
    EXPECT_FALSE(encoded.Lost().empty()) << cut.size();
  }
}

TEST(LostCharacters, AreUnicodeInUtf8) {
  LostCharacters lost;
  for (const char32_t c : {U'я', U'あ', U'я', char32_t{0xD800}, char32_t{0x110000}, U'😀'}) {
    lost.Add(c);
  }
  EXPECT_EQ(lost.Text(), "яあ\uFFFD😀");
  lost.Clear();
  EXPECT_TRUE(lost.Empty());
  lost.Add(U'я');
  EXPECT_EQ(lost.Text(), "я");
}

}  // namespace
}  // namespace vellumark::layout
