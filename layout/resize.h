// SPDX-License-Identifier: MIT
//
// Resize: the size at which a picture fits into a box.
#pragma once

#include "layout/points.h"
#include "layout/rounding.h"

namespace vellumark::layout {

class Resize {
 public:
  struct Size {
    Points width;
    Points height;
    friend bool operator==(const Size&, const Size&) = default;
  };

  /// `source` scaled down into `box` if it is larger, never up, in its own proportions: first to
  /// the width of the box, then to its height. Lengths are rounded to nearest, ties to even, and at
  /// least 1. `source` is at least 1 by 1.
  static constexpr Size Calculate(const Size& box, const Size& source) {
    Size fitted = source;
    if (fitted.width > box.width) {
      fitted.height = Scaled(fitted.height, box.width, fitted.width);
      fitted.width = box.width;
    }
    if (fitted.height > box.height) {
      fitted.width = Scaled(fitted.width, box.height, fitted.height);
      fitted.height = box.height;
    }
    return {AtLeastOne(fitted.width), AtLeastOne(fitted.height)};
  }

 private:
  static constexpr Points Scaled(Points length, Points wanted, Points present) {
    const int product = length.value() * wanted.value();
    return {RoundHalfEven(static_cast<double>(product) / present.value())};
  }

  static constexpr Points AtLeastOne(Points length) { return length == 0 ? Points(1) : length; }
};

}  // namespace vellumark::layout
