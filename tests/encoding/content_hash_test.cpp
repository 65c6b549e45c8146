// SPDX-License-Identifier: MIT
#include "encoding/content_hash.h"

#include <gtest/gtest.h>
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

// The values that other implementations of MurmurHash3 have for these texts (their two numbers,
// the lower byte first here).
TEST(ContentHash, IsTheSameEverywhere) {
  ContentHash hash;
  EXPECT_EQ(Hex(hash), "00000000000000000000000000000000");
  hash.Add(kFox);
  EXPECT_EQ(Hex(hash), "6c1b07bc7bbc4be347939ac4a93c437a");
}

TEST(ContentHash, DoesNotDependOnThePieces) {
  for (std::size_t first = 0; first <= kFox.size(); ++first) {
    for (std::size_t second = first; second <= kFox.size(); second += 5) {
      ContentHash hash;
      hash.Add(kFox.substr(0, first));
      hash.Add(kFox.substr(first, second - first));
      hash.Add(kFox.substr(second));
      ASSERT_EQ(Hex(hash), "6c1b07bc7bbc4be347939ac4a93c437a") << first << ' ' << second;
    }
  }
}

}  // namespace
}  // namespace vellumark::encoding
