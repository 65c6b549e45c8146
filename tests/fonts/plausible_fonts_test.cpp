// SPDX-License-Identifier: MIT
//
// Documents with a loaded font keep the bytes of their pages.
#include "tests/fonts/test_font.h"
#include "tests/random_documents.h"
#include "tests/same_bytes/plausible_document.h"

namespace vellumark::tests {
namespace {

/// Some documents, each from `from` on up to `to`.
template <class AnyDocument>
std::uint64_t ChecksumOfPlausible(std::string_view from, std::string_view to) {
  std::string all;
  int drawn = 0;
  for (std::uint32_t number = 0; number < 40; ++number) {
    const PlausibleDocument<AnyDocument> document(number, true, TestFont());
    drawn += document.drawn();
    const std::string& file = document.Bytes();
    const std::size_t begin = file.find(from);
    all += file.substr(begin, std::min(file.find(to), file.size()) - begin);
  }
  EXPECT_GT(drawn, 3000);
  return Checksum(all);
}

// The fonts' files are left out: they are as the libraries make them.
TEST(PlausibleFonts, PagesKeepTheirBytes) {
  EXPECT_EQ(ChecksumOfPlausible<PDF>("%PDF", "/FontFile"), 4806858828792384490U);
  EXPECT_EQ(ChecksumOfPlausible<PS>("%%EndSetup", "%%EOF"), 2816800860323534171U);
}

}  // namespace
}  // namespace vellumark::tests
