// SPDX-License-Identifier: MIT
//
// SetCover: a page with the title, the author and the date, one below the other, centered.
#pragma once

#include <string>

#include "tools/block_setting.h"

namespace vellumark::tools {

/// Empty texts are left out.
struct CoverText {
  std::string title;
  std::string author;
  std::string date;
};

/// The size of the title on the cover, if the text has `size`; both in points.
[[nodiscard]] constexpr int CoverTitleSize(int size) {
  return std::min(size * 5 / 2, kLargestSize);
}

/// On the open page, which must be empty.
void SetCover(const CoverText& cover, const BlockSetting& setting);

}  // namespace vellumark::tools
