// SPDX-License-Identifier: MIT
#include "layout/justification.h"

#include "layout/text_width.h"

namespace vellumark::layout {

bool JustifyWords(std::span<const std::int32_t> sums, Points width, std::uint8_t height,
                  Rounding rounding, std::vector<Points>& positions) {
  const std::size_t count = sums.size();
  positions.assign(count, 0);
  if (count < 2) return false;
  try {
    Points end = 0;  // of the words so far
    std::int32_t sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
      positions[i] = end;
      sum += sums[i];
      end = rounding == Rounding::Sums ? FontWidths::InPoints(height, sum)
                                       : end + FontWidths::InPoints(height, sums[i]);
    }
    const Points last_width = end - positions[count - 1];
    const Points spare = width - positions[count - 1] - last_width;
    const int gaps = static_cast<int>(count) - 1;
    const int gap = spare.value() / gaps;
    if (gap > 0) {
      for (std::size_t i = 1; i < count; ++i) {
        positions[i] = positions[i].value() + gap * static_cast<int>(i);
      }
    }
    // What the truncating division left over goes to the first gaps, a point each.
    const int rest = (width - positions[count - 1] - last_width).value();
    for (int i = 1; i <= gaps && rest > 0; ++i) {
      auto& position = positions[static_cast<std::size_t>(i)];
      position = position + (i < rest ? i : rest);
    }
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace vellumark::layout
