// SPDX-License-Identifier: MIT
//
// Resize: the size at which a picture fits into a box.
//
//     Resize({100, 100}, {400, 200})     // {100, 50}
#pragma once

#include <algorithm>

#include "layout/points.h"
#include "layout/rounding.h"

namespace vellumark::layout {

/// In points, or the pixels of a picture.
struct Size {
  Points width;
  Points height;
  friend bool operator==(const Size&, const Size&) = default;
};

/// `source` scaled down into `box` if it is larger, never up, in its own proportions: first to the
/// width of the box, then to its height. Lengths are rounded to nearest, ties to even, and at least
/// 1. `source` is at least 1 by 1.
constexpr Size Resize(const Size& box, const Size& source) {
  const auto scaled = [](Points length, Points wanted, Points present) -> Points {
    const int product = length.value() * wanted.value();
    return RoundHalfEven(static_cast<double>(product) / present.value());
  };
  Size fitted = source;
  if (fitted.width > box.width) {
    fitted.height = scaled(fitted.height, box.width, fitted.width);
    fitted.width = box.width;
  }
  if (fitted.height > box.height) {
    fitted.width = scaled(fitted.width, box.height, fitted.height);
    fitted.height = box.height;
  }
  return {std::max(fitted.width, Points(1)), std::max(fitted.height, Points(1))};
}

}  // namespace vellumark::layout
