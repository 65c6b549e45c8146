// SPDX-License-Identifier: MIT
//
// The fonts of the tests (make_fonts.py), as bytes that can be changed.
#pragma once

#include <cstdint>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#ifndef VELLUMARK_TEST_FONTS
#define VELLUMARK_TEST_FONTS ""  // where make_fonts.py is; the build knows
#endif

namespace vellumark::tests {

using FontBytes = std::vector<std::uint8_t>;

/// "boxes.ttf" has TrueType outlines, "boxes.otf" CFF outlines.
inline FontBytes TestFont(const std::string& name = "boxes.ttf",
                          const std::string& folder = VELLUMARK_TEST_FONTS "/") {
  std::ifstream file(folder + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Where a table begins; 0 if the font lacks it.
inline std::size_t TableAt(const FontBytes& font, std::string_view tag) {
  for (std::size_t entry = 12; entry + 16 <= 12 + 16U * font[5]; entry += 16) {
    if (std::equal(tag.begin(), tag.end(), font.begin() + static_cast<std::ptrdiff_t>(entry))) {
      return std::size_t{font[entry + 10]} << 8 | font[entry + 11];
    }
  }
  return 0;
}

}  // namespace vellumark::tests
