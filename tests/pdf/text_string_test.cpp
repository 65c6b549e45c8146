// SPDX-License-Identifier: MIT
#include "pdf/text_string.h"

#include <gtest/gtest.h>
#include <string>

#include "layout/text_encoding.h"
#include "pdf/font_encoding.h"

namespace vellumark::pdf {
namespace {

template <class Part>
std::string WrittenString(const Part& part) {
  std::string text(part.MaxSize(), '*');
  text.resize(static_cast<std::size_t>(part.Write(text.data()) - text.data()));
  return text;
}

TEST(EscapedString, AnyBytesAreLiteral) {
  EXPECT_EQ(WrittenString(EscapedString{""}), "()");
  EXPECT_EQ(WrittenString(EscapedString{"C:\\temp\\new"}), R"((C:\\temp\\new))");
  EXPECT_EQ(WrittenString(EscapedString{") unbalanced (("}), R"((\) unbalanced \(\())");
  EXPECT_EQ(WrittenString(EscapedString{{"\r\n\t\0\x80\xFF", 6}}),
            "(\\r\\n" + std::string("\t\0\x80\xFF)", 5));
}

// Blocks without special bytes are copied whole: one is found wherever it stands.
TEST(EscapedString, ASpecialByteAnywhere) {
  for (std::size_t place = 0; place < 70; ++place) {
    std::string text(70, 'x');
    text[place] = '(';
    const std::string written = WrittenString(EscapedString{text});
    EXPECT_EQ(written.substr(place, 3), place == 0 ? "(\\(" : "x\\(");
    EXPECT_EQ(written.size(), 73U);
  }
}

TEST(TextString, IsAsciiOrUtf16) {
  EXPECT_EQ(WrittenString(TextString{"A (plain) title"}), R"((A \(plain\) title))");
  EXPECT_EQ(WrittenString(TextString{"é"}), "(\xFE\xFF" + std::string("\0\xE9)", 3));
  // U+0428, U+010D, U+0A5C and U+1F600: bytes that are special are escaped, whatever they are half
  // of.
  EXPECT_EQ(WrittenString(TextString{"Ш\u010D\u0A5C😀"}),
            "(\xFE\xFF\x04\\(\x01\\r\\n\\\\\xD8\x3D\xDE" + std::string("\0)", 2));
  EXPECT_EQ(WrittenString(TextString{"a\x1B\xFF"}),
            "(\xFE\xFF" + std::string("\0a\xFF\xFD\xFF\xFD)", 7));
}

TEST(UriString, EncodesWhatAUriHasNoPlaceFor) {
  struct Case {
    const char* address;
    const char* written;
  };
  constexpr Case kCases[] = {
      {"https://a.b/c?d=e&f=(g)#h", R"((https://a.b/c?d=e&f=\(g\)#h))"},
      {"https://a.b/Bücher und \"mehr\"", "(https://a.b/B%C3%BCcher%20und%20%22mehr%22)"},
      {"a%20b%2fc%2", "(a%20b%2fc%252)"},
      {"100%", "(100%25)"},
      {"%09%AF%af%0/%:0%@0%G0%`0%g0", "(%09%AF%af%250/%25:0%25@0%25G0%25%600%25g0)"},
      {"50%zz<>\\^`{|}\n\x7F", "(50%25zz%3C%3E%5C%5E%60%7B%7C%7D%0A%7F)"},
      {"mailto:a@b.c,[::1]!$'*+;=~", "(mailto:a@b.c,[::1]!$'*+;=~)"},
  };
  for (const Case& one : kCases) EXPECT_EQ(WrittenString(UriString{one.address}), one.written);
}

TEST(TextParts, TheirRoomIsWhatTheWorstTextNeeds) {
  const std::string worst(20, '(');
  const auto expect_full = [](const auto& part) {
    EXPECT_EQ(WrittenString(part).size(), part.MaxSize());
  };
  expect_full(EscapedString{worst});
  expect_full(TextString{"\n" + worst});
  expect_full(UriString{std::string(20, '\n')});
}

TEST(FontEncoding, DifferencesNameWhatWinAnsiLacks) {
  const std::string differences = DifferencesOf(layout::TextEncoding::Extended);
  EXPECT_EQ(differences.find("[ 1 /omacron /Rcommaaccent "), 0U);
  EXPECT_NE(differences.find("159 /zacute /space /caron"), std::string::npos);
  EXPECT_EQ(differences.find("/adieresis"), std::string::npos);  // the same in both
  EXPECT_EQ(DifferencesOf(layout::TextEncoding::Symbol), "[ 160 /Euro ]");
  EXPECT_EQ(DifferencesOf(layout::TextEncoding::ZapfDingbats).find("[ 128 /a89 /a90 /a93 "), 0U);
}

TEST(FontEncoding, ToUnicodeGivesBackEachCharacter) {
  const std::string map = ToUnicodeMap(layout::TextEncoding::Extended);
  EXPECT_NE(map.find("<20> <7E> <0020>\n"), std::string::npos);
  EXPECT_NE(map.find("\n<A0> <00A0>\n"), std::string::npos);
  EXPECT_NE(map.find("\n<0C> <FB01>\n"), std::string::npos);
  EXPECT_NE(ToUnicodeMap(layout::TextEncoding::WinAnsi).find("\n<AE> <FF> <00AE>\n"),
            std::string::npos);
  EXPECT_NE(ToUnicodeMap(layout::TextEncoding::Symbol).find("<61> <62> <03B1>\n"),
            std::string::npos);
}

}  // namespace
}  // namespace vellumark::pdf
