// SPDX-License-Identifier: MIT
//
// SetContents: the table of contents, a line for each heading with dots up to its page number.
//
//     SetContents({{"Usage", 1, 3, "usage"}, {"Options", 2, 4, "options"}}, setting);
//
//     Usage . . . . . . . . . . . . 3
//       Options . . . . . . . . . . 4
//
// How many lines and pages it takes does not depend on the page numbers.
#pragma once

#include <string>
#include <vector>

#include "tools/block_setting.h"

namespace vellumark::tools {

/// A heading that was set.
struct PlacedHeading {
  std::string title;   ///< on one line
  int depth = 1;       ///< 1 for the highest; at most one more than that of the heading before
  int page = 0;        ///< its number, from 1
  std::string anchor;  ///< its name in the document
};

/// Headings of a greater depth are not in the table.
inline constexpr int kContentsDepth = 3;

/// From the top of the open page on, which must be empty.
void SetContents(const std::vector<PlacedHeading>& headings, const BlockSetting& setting);

}  // namespace vellumark::tools
