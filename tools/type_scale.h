// SPDX-License-Identifier: MIT
//
// The sizes and distances on a page, all in points and derived from the size of the text.
#pragma once

#include <algorithm>
#include <array>

namespace vellumark::tools {

inline constexpr int kSmallestSize = 8;  // of the library's fonts
inline constexpr int kLargestSize = 72;

/// Title levels 1 to 6, in percent of the text.
inline constexpr std::array<int, 6> kTitlePercent = {175, 140, 120, 110, 100, 100};

[[nodiscard]] constexpr int TitleSize(int size, int level) {
  const int percent = kTitlePercent[static_cast<std::size_t>(std::clamp(level, 1, 6) - 1)];
  return std::min((size * percent + 50) / 100, kLargestSize);
}

/// Code blocks: 80 columns fit the text width of an A4 page at the default size and margins.
[[nodiscard]] constexpr int CodeSize(int size) {
  return std::max((size * 4 + 2) / 5, kSmallestSize);
}

/// Code within a line, about as high as the text around it.
[[nodiscard]] constexpr int InlineCodeSize(int size) { return std::max(size - 1, kSmallestSize); }

/// The distance from one line to the next.
[[nodiscard]] constexpr int LinePitch(int size) { return size + std::max(size * 28 / 100, 2); }

[[nodiscard]] constexpr int ParagraphSpace(int size) { return LinePitch(size) / 2; }
[[nodiscard]] constexpr int ListItemSpace(int size) { return std::max(size / 6, 1); }
[[nodiscard]] constexpr int SpaceAboveTitle(int title_size) { return title_size; }
[[nodiscard]] constexpr int SpaceBelowTitle(int title_size) { return title_size * 2 / 5; }
[[nodiscard]] constexpr int IndentOfALevel(int size) { return size * 8 / 5; }
/// Between code and the edge of its background.
[[nodiscard]] constexpr int CodePadding(int size) { return size / 2; }

/// Between a list item's marker and its text.
[[nodiscard]] constexpr int MarkerGap(int size) { return std::max(size * 2 / 5, 3); }

}  // namespace vellumark::tools
