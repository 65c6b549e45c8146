// SPDX-License-Identifier: MIT
#include "encoding/content_hash.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace vellumark::encoding {
namespace {

std::string Hex(const ContentHash& hash) {
  std::string hex;
  for (const std::uint8_t byte : hash.Value()) {
    hex += "0123456789abcdef"[byte / 16];
    hex += "0123456789abcdef"[byte % 16];
  }
  return hex;
}

constexpr std::string_view kFox = "The quick brown fox jumps over the lazy dog";

// The first half is what other programs print as XXH64.
TEST(ContentHash, IsTheSameEverywhere) {
  ContentHash hash;
  EXPECT_EQ(Hex(hash).substr(0, 16), "ef46db3751d8e999");
  hash.Add(kFox);
  EXPECT_EQ(Hex(hash).substr(0, 16), "0b242d361fda71bc");
}

TEST(ContentHash, TellsContentsApart) {
  std::set<std::string> first;
  std::set<std::string> second;
  std::size_t contents = 0;
  const auto add = [&](const std::string& bytes) {
    ContentHash hash;
    hash.Add(bytes);
    first.insert(Hex(hash).substr(0, 16));
    second.insert(Hex(hash).substr(16));
    ++contents;
  };
  for (std::size_t size = 0; size < 100; ++size) {
    std::string bytes(size, '\0');
    add(bytes);
    for (std::size_t bit = 0; bit < 8 * size; ++bit) {
      bytes[bit / 8] = static_cast<char>(1U << bit % 8);
      add(bytes);
      bytes[bit / 8] = 0;
    }
  }
  EXPECT_EQ(first.size(), contents);
  EXPECT_EQ(second.size(), contents);
}

TEST(ContentHash, DoesNotDependOnThePieces) {
  ContentHash whole;
  whole.Add(kFox);
  for (std::size_t first = 0; first <= kFox.size(); ++first) {
    for (std::size_t second = first; second <= kFox.size(); second += 5) {
      ContentHash hash;
      hash.Add(kFox.substr(0, first));
      hash.Add(kFox.substr(first, second - first));
      hash.Add(kFox.substr(second));
      ASSERT_EQ(Hex(hash), Hex(whole)) << first << ' ' << second;
    }
  }
}

}  // namespace
}  // namespace vellumark::encoding
