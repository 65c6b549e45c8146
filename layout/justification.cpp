// SPDX-License-Identifier: MIT
#include "layout/justification.h"

namespace vellumark::layout {
namespace {

void SplitWithBlanks(std::string_view text, std::vector<std::string_view>& words) {
  words.clear();
  for (;;) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos) break;
    words.push_back(text.substr(0, blank + 1));
    text.remove_prefix(blank + 1);
  }
  words.push_back(text);
}

}  // namespace

bool JustifyText(std::string_view text, Points width, const TextSetter& setter, const Font& font,
                 JustifiedLine& line) {
  SplitWithBlanks(text, line.words);
  const std::size_t count = line.words.size();
  auto& positions = line.positions;
  positions.assign(count + 1, 0);
  if (count == 1) return false;  // there is no gap to stretch
  try {
    for (std::size_t i = 1; i < count; ++i) {
      positions[i] = positions[i - 1] + setter.WidthInPoints(line.words[i - 1], font);
    }
    const Points last_width = setter.WidthInPoints(line.words.back(), font);
    const Points spare = width - positions[count - 1] - last_width;
    const int gap = spare.value() / (static_cast<int>(count) - 1);
    if (gap > 0) {
      for (std::size_t i = 1; i < count; ++i) {
        positions[i] = positions[i].value() + gap * static_cast<int>(i);
      }
    }
    // What the truncating division left over goes to the first gaps, a point each.
    const int rest = (width - positions[count - 1] - last_width).value();
    for (int i = 1; i < static_cast<int>(count) && rest > 0; ++i) {
      auto& position = positions[static_cast<std::size_t>(i)];
      position = position + (i < rest ? i : rest);
    }
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace vellumark::layout
