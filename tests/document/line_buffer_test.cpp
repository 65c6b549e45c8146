// SPDX-License-Identifier: MIT
#include "document/line_buffer.h"

#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <vellumark/run_time_error.h>

namespace vellumark::tests {
namespace {

using document::LineBuffer;
using document::LineEnd;

std::string Written(const LineBuffer& lines) {
  std::string text;
  lines.ForEachLine([&](std::string_view line) { text.append(line); });
  std::string pieces;
  lines.ForEachPiece([&](std::string_view piece) { pieces.append(piece); });
  EXPECT_EQ(pieces, text);
  return text;
}

/// What a buffer should hold, line by line.
class Model {
 public:
  std::vector<std::string> lines;

  [[nodiscard]] std::string Text() const {
    std::string text;
    for (const std::string& line : lines) text.append(line).append("\n");
    return text;
  }
};

TEST(LineBuffer, WritesIntegersOfEveryLength) {
  LineBuffer lines(LineEnd::Lf);
  std::string expected;
  for (std::int64_t power = 1; power < 1000000000000000000; power *= 10) {
    for (const std::int64_t value : {power - 1, power, power + 1, -power, 7 * power}) {
      lines.Append(value, ' ', static_cast<std::int32_t>(value % 1000000));
      expected += std::to_string(value) + " " + std::to_string(value % 1000000) + "\n";
    }
  }
  for (const int value : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    lines.Append(value);
    expected += std::to_string(value) + "\n";
  }
  lines.Append(std::numeric_limits<std::int64_t>::min(), '/', layout::Points(-32768));
  expected += std::to_string(std::numeric_limits<std::int64_t>::min()) + "/-32768\n";
  EXPECT_EQ(Written(lines), expected);
}

/// Random lines of all kinds, taken back now and then, against a list of strings.
TEST(LineBuffer, HoldsItsLinesThroughChunksReplacementsAndRollBack) {
  std::mt19937 random(7);  // NOLINT(cert-msc51-cpp): the same in every run
  const auto below = [&](std::size_t limit) { return random() % limit; };
  LineBuffer lines(LineEnd::Lf);
  Model model;
  for (int round = 0; round < 300; ++round) {
    LineBuffer::Mark mark;
    lines.Here(mark);
    const std::size_t kept = model.lines.size();
    for (std::size_t i = below(30); i > 0; --i) {
      const std::string text(below(20) == 0 ? below(200000) : below(40),
                             static_cast<char>('a' + below(26)));
      switch (below(4)) {
        case 0: EXPECT_EQ(lines.AppendOwned(std::string(text)), model.lines.size()); break;
        case 1: {
          EXPECT_EQ(lines.AppendEncoded({0xAB, 0x01}, EncodingConstants::ASCIIHex, 5),
                    model.lines.size());
          model.lines.emplace_back("AB01>");
          continue;
        }
        default: EXPECT_EQ(lines.Append(text), model.lines.size());
      }
      model.lines.push_back(text);
    }
    if (below(3) == 0 && model.lines.size() > kept) {
      const std::size_t place = kept + below(model.lines.size() - kept);
      for (const char* text : {"first", "then another"}) lines.Replace(place, text);
      model.lines[place] = "then another";
    }
    if (below(3) == 0) {
      lines.RollBack(mark);
      model.lines.resize(kept);
    }
    if (below(40) == 0) {
      LineBuffer other(LineEnd::Lf);
      std::swap(lines, other);
      EXPECT_EQ(Written(other), model.Text());
      if (below(2) == 0) {
        std::swap(lines, other);
      } else {
        model = {};
      }
    }
    ASSERT_EQ(lines.LineCount(), model.lines.size());
  }
  EXPECT_EQ(Written(lines), model.Text());
}

TEST(LineBuffer, ReusesItsFirstChunkIfItIsOneForManyLines) {
  for (const bool owned : {false, true}) {
    LineBuffer lines(LineEnd::Lf);
    if (owned) lines.AppendOwned("taken over");
    for (int i = 0; i < 3; ++i) lines.Append(std::string(40000, 'x'));
    lines.Reuse();
    lines.Append("one");
    std::string storage;
    EXPECT_EQ(lines.Text(storage), "one\n") << owned;
    EXPECT_EQ(lines.LineCount(), 1U);
    LineBuffer::Mark mark;
    lines.Here(mark);
    EXPECT_EQ(lines.TextSince(mark), "");
    lines.AppendOwned("two");
    lines.AppendEncoded({1}, EncodingConstants::ASCIIHex, 3);
    lines.Append(std::string(70000, 'y'));
    EXPECT_EQ(lines.TextSince(mark), "two\n" + std::string(70000, 'y') + "\n") << "no encoded ones";
    EXPECT_EQ(lines.ByteCount(), 4 + 4 + 4 + 70001);
  }
  LineBuffer empty(LineEnd::Lf);
  LineBuffer::Mark start;
  empty.Here(start);
  std::string storage;
  EXPECT_EQ(empty.Text(storage), "");
  empty.Append("one");
  EXPECT_EQ(empty.TextSince(start), "one\n");
  LineBuffer::Mark behind_owned;
  empty.AppendOwned("two");
  empty.Here(behind_owned);
  empty.Append("three");
  EXPECT_EQ(empty.TextSince(behind_owned), "three\n");
  empty.Reuse();
  empty.ForEachPiece([](std::string_view piece) { ADD_FAILURE() << piece; });
}

TEST(LineBuffer, HasNoLineOf2GiB) {
  LineBuffer lines;
  // A view that is never read: the size alone is refused.
  const volatile std::size_t size = std::size_t{1} << 31;  // the compiler need not know
  EXPECT_THROW(lines.Append(std::string_view("", size)), RunTimeError);
  EXPECT_EQ(lines.LineCount(), 0U);
}

}  // namespace
}  // namespace vellumark::tests
