// SPDX-License-Identifier: MIT
//
// ChooseWidths: how wide the columns of a table are.
//
//     const std::vector<int> widths = ChooseWidths({{40, 200}, {60, 60}}, 200);   // 140, 60
//
// Columns are as wide as their text if there is room for it. Otherwise the cells are wrapped: every
// column gets the width of its longest word, and the rest of the room is distributed in proportion
// to what each would still need. If there is no room for the longest words, they are broken.
#pragma once

#include <cstddef>
#include <vector>

namespace vellumark::tools {

/// In points, with the padding on both sides.
struct ColumnNeed {
  int least = 0;    ///< without breaking a word
  int natural = 0;  ///< without wrapping; not less than `least`
};

/// Whether the columns fit into `room` points without breaking a word.
[[nodiscard]] bool FitsUnbroken(const std::vector<ColumnNeed>& needs, int room);

/// The width of each column; their sum is not more than `room`. There must be at least one point
/// for each.
[[nodiscard]] std::vector<int> ChooseWidths(const std::vector<ColumnNeed>& needs, int room);

/// How many of the columns from `first` on go side by side, if none may get less than `narrowest`
/// points, unless it needs less; at least one.
[[nodiscard]] std::size_t ColumnsSideBySide(const std::vector<ColumnNeed>& needs, std::size_t first,
                                            int narrowest, int room);

}  // namespace vellumark::tools
