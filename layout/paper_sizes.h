// SPDX-License-Identifier: MIT
//
// The nine paper sizes: their dimensions in points and the names that PostScript knows them by.
#pragma once

#include <string_view>

#include <vellumark/enumerations.h>

#include "layout/points.h"

namespace vellumark::layout {

struct Paper {
  Points width;
  Points height;
  std::string_view name;
};

[[nodiscard]] bool IsPaperSize(PaperSizeConstants papersize) noexcept;

/// Takes the dimensions and name of `papersize` into `paper`; a value that is not a paper size
/// leaves it unchanged. Then, for Landscape only, exchanges width and height, also of an unchanged
/// `paper`.
void GetPaperDimensions(PaperSizeConstants papersize, OrientationConstants orientation,
                        Paper& paper) noexcept;

}  // namespace vellumark::layout
