// SPDX-License-Identifier: MIT
//
// Resize: the size at which a picture fits into a box.
//
//     Resize({100, 100}, {400, 200})     // {100, 50}
//     Enlarge({100, 100}, {20, 10})      // {100, 50}
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

/// `length` in the proportion of `wanted` to `present`, rounded to nearest, ties to even.
constexpr Points Scaled(Points length, Points wanted, Points present) {
  const int product = length.value() * wanted.value();
  return RoundHalfEven(static_cast<double>(product) / present.value());
}

/// `source` scaled down into `box` if it is larger, never up, in its own proportions: first to the
/// width of the box, then to its height. Lengths are rounded to nearest, ties to even, and at least
/// 1. `source` is at least 1 by 1.
constexpr Size Resize(const Size& box, const Size& source) {
  Size fitted = source;
  if (fitted.width > box.width) {
    fitted.height = Scaled(fitted.height, box.width, fitted.width);
    fitted.width = box.width;
  }
  if (fitted.height > box.height) {
    fitted.width = Scaled(fitted.width, box.height, fitted.height);
    fitted.height = box.height;
  }
  return {std::max(fitted.width, Points(1)), std::max(fitted.height, Points(1))};
}

/// `source` scaled up until it fills the width or the height of `box`, if it is smaller in both;
/// otherwise as it is. In its own proportions, rounded likewise.
constexpr Size Enlarge(const Size& box, const Size& source) {
  if (source.width >= box.width || source.height >= box.height) return source;
  const bool to_width =
      source.width.value() * box.height.value() >= source.height.value() * box.width.value();
  if (to_width) return {box.width, Scaled(source.height, box.width, source.width)};
  return {Scaled(source.width, box.height, source.height), box.height};
}

}  // namespace vellumark::layout
