// SPDX-License-Identifier: MIT
//
// SetTable: a table with a rule below its header and thin rules between its rows.
//
// Cells are wrapped and aligned as the table says. If it is too wide, it is set smaller, down to
// the smallest size of the fonts; then its words are broken; and if there are too many columns even
// for that, the columns that have no room follow below. A row stays on one page if a page is high
// enough for it. The header is repeated on every page.
#pragma once

#include <functional>

#include "tools/block_setting.h"
#include "tools/markdown_tree.h"

namespace vellumark::tools {

/// `prepare` is called with the text of each cell before it is set.
void SetTable(cmark_node* table, const BlockSetting& setting,
              const std::function<void(InlineText&)>& prepare);

/// The height in points of the header and the first row below it, which stay together.
[[nodiscard]] int HeightOfTableStart(cmark_node* table, const BlockSetting& setting);

}  // namespace vellumark::tools
