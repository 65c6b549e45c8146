// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <string>

#include "ps/comment_text.h"
#include "ps/literal_string.h"

namespace vellumark::ps {
namespace {

std::string Written(std::string_view bytes) {
  const EscapedString string(bytes);
  std::string text(string.MaxSize(), '*');
  text.resize(static_cast<std::size_t>(string.Write(text.data()) - text.data()));
  return text;
}

TEST(PsEscapedString, AnyBytesAreLiteral) {
  EXPECT_EQ(Written(""), "()");
  EXPECT_EQ(Written("C:\\temp (x"), R"((C:\\temp \(x))");
  EXPECT_EQ(Written({"\r\n\0\x7F\x80\xFF~", 7}), R"((\015\012\000\177\200\377~))");
}

// Reads a string as an interpreter does, and looks at its lines.
std::string Read(const std::string& text) {
  std::string read;
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    EXPECT_FALSE(column == 0 && i > 0 && text[i] == '%');
    EXPECT_LE(++column, 200U);
    const bool ends = (text[i] == '(' && i == 0) || (text[i] == ')' && i + 1 == text.size());
    if (ends) continue;
    if (text[i] != '\\') {
      read += text[i];
    } else if (text[i + 1] == '\n') {
      ++i;
      column = 0;
    } else if (text[i + 1] >= '0' && text[i + 1] <= '7') {
      read += static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8));
      i += 3;
      column += 3;
    } else {
      read += text[++i];
      ++column;
    }
  }
  return read;
}

TEST(PsEscapedString, LongOnesGoOnInLinesOfAtMost200BytesThatAreNoComments) {
  for (const std::string_view piece : {"x", "%", "(", "\xFF", "ab\\%%Page: 1 1\n"}) {
    for (std::size_t size = 30; size < 420; size += 1 + size / 60) {
      std::string bytes;
      while (bytes.size() < size) bytes += piece;
      ASSERT_EQ(Read(Written(bytes)), bytes);
    }
  }
}

TEST(CommentText, AnyTextIsOneLineThatReadersTakeWhole) {
  struct Case {
    const char* text;
    const char* written;
  };
  constexpr Case kCases[] = {
      {"A title) with %% and \\", "A title) with %% and \\"},
      {"", "()"},
      {"(atend)", R"((\(atend\)))"},
      {" a", "( a)"},
      {"a\r\n%%EOF\n", "(a %%EOF )"},
      {"a\tb\x01 c", "(a b  c)"},
      {"Bücherei (neu)", R"((B\374cherei \(neu\)))"},
      {"Dvořák – „so“ …", R"x((Dvor\341k - "so" ...))x"},
      {"Łódź e\u0301 €", R"((L\363dz \351 EUR))"},
      {"да\xFF", "???"},
  };
  for (const Case& one : kCases) EXPECT_EQ(CommentText(one.text), one.written);
}

TEST(CommentText, IsCutAtACharacter) {
  EXPECT_EQ(CommentText(std::string(300, 'x')), std::string(198, 'x'));
  std::string umlauts;
  for (int i = 0; i < 100; ++i) umlauts += "ü";
  const std::string written = CommentText(umlauts);
  EXPECT_EQ(written.size(), 4 * 49 + 2U);
  EXPECT_EQ(written.substr(written.size() - 5), "\\374)");
}

}  // namespace
}  // namespace vellumark::ps
