// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <memory>

#include "encoding/greedy_match_finder.h"
#include "encoding/lazy_match_finder.h"
#include "tests/encoding/generated_input.h"

namespace vellumark::encoding {
namespace {

using testing::Bytes;

constexpr LevelParameters kThorough = {32, 258, 258, 4096};

// The plain walk along one chain, as the lazy method would do it without its second chain.
class PlainFinder {
 public:
  PlainFinder(std::span<const std::uint8_t> input, const LevelParameters& parameters)
      : parameters_(parameters), window_(input) {}

  Match Find(Position position, std::int32_t best_length) {
    const std::uint8_t* const at = window_.At(position);
    const Position newest = chain_.Insert(position, HashChain::Hash(at[0], at[1], at[2]));
    if (newest == kNoPosition || position - newest > Window::kGreatestDistance) return {2, 0};
    const Match match = chain_.Longest(window_, position, newest, best_length,
                                       LimitsAt(position, window_, parameters_, best_length));
    return match.length == 3 && position - match.start > 4096 ? Match{2, 0} : match;
  }

 private:
  LevelParameters parameters_;
  Window window_;
  HashChain chain_;
};

void ExpectSameMatches(const Bytes& input, const LevelParameters& parameters) {
  const auto lazy = std::make_unique<LazyMatchFinder>(input, parameters);
  const auto plain = std::make_unique<PlainFinder>(input, parameters);
  testing::Random random(9);
  for (Position position = 0; position + 3 <= static_cast<Position>(input.size()); ++position) {
    const std::int32_t best_length =
        random.Next() % 2 == 0 ? 2 : 3 + static_cast<int>(random.Next() % 40);
    const Match found = lazy->Find(position, best_length);
    const Match expected = plain->Find(position, best_length);
    // If nothing longer is found, the length only has to be at most the best one.
    if (expected.length > best_length) {
      ASSERT_EQ(found.length, expected.length) << "at " << position;
      ASSERT_EQ(found.start, expected.start) << "at " << position;
    } else {
      ASSERT_LE(found.length, std::max(best_length, 3)) << "at " << position;
      ASSERT_FALSE(best_length == 2 && found.length > 2) << "at " << position;
    }
  }
}

TEST(LazyMatchFinder, TheSecondChainFindsWhatThePlainWalkFinds) {
  Bytes few_letters = testing::Noise(60'000, 4);
  for (std::uint8_t& byte : few_letters) byte %= 3;
  for (const LevelParameters& parameters : kLevelParameters) {
    ExpectSameMatches(testing::GeneratedInput(60'000, 2), parameters);
    ExpectSameMatches(testing::FarCopies(60'000, 9, 2), parameters);
    ExpectSameMatches(few_letters, parameters);
  }
}

// What is found at the last three bytes of an input of zeros, but for "xyz" there and before.
template <typename Find>
std::int32_t LengthAt(Position distance, Find find) {
  Bytes input(static_cast<std::size_t>(distance) + 10);
  for (const std::size_t at : {std::size_t{7}, static_cast<std::size_t>(distance) + 7}) {
    input[at] = 'x';
    input[at + 1] = 'y';
    input[at + 2] = 'z';
  }
  return find(input, distance + 7);
}

TEST(LazyMatchFinder, ThreeBytesFromBeyond4096AreNoMatchForTheLazyMethodAlone) {
  const auto lazy = [](const Bytes& input, Position position) {
    const auto finder = std::make_unique<LazyMatchFinder>(input, kThorough);
    finder->Insert(1, position);
    return finder->Find(position, 2).length;
  };
  const auto greedy = [](const Bytes& input, Position position) {
    const auto finder = std::make_unique<GreedyMatchFinder>(input, kThorough);
    finder->Insert(1, position);
    return finder->Find(position).length;
  };
  EXPECT_EQ(LengthAt(4096, lazy), 3);
  EXPECT_EQ(LengthAt(4097, lazy), 2);
  EXPECT_EQ(LengthAt(4097, greedy), 3);
  EXPECT_EQ(LengthAt(32506, greedy), 3);
  EXPECT_EQ(LengthAt(32507, greedy), 2);
}

}  // namespace
}  // namespace vellumark::encoding
