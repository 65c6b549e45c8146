// SPDX-License-Identifier: MIT
//
// GetAlignmentOffset: where an item of a known width starts inside an available width.
#pragma once

#include <vellumark/enumerations.h>

#include "layout/points.h"

namespace vellumark::layout {

/// Left of an item of `itemwidth` points inside `width` points: 0 for NoAlignment, LeftAlign and
/// every value that is not an alignment; half the spare width for Center, truncated toward zero;
/// all of it for RightAlign. Negative if the item is the wider one. Raises run-time error 6 if the
/// spare width leaves 16 bits.
constexpr Points GetAlignmentOffset(Points width, Points itemwidth, AlignmentConstants alignment) {
  switch (alignment) {
    case AlignmentConstants::Center: return (width - itemwidth) / 2;
    case AlignmentConstants::RightAlign: return width - itemwidth;
    default: return 0;
  }
}

constexpr bool IsAlignment(AlignmentConstants alignment) noexcept {
  return alignment >= AlignmentConstants::NoAlignment &&
         alignment <= AlignmentConstants::RightAlign;
}

}  // namespace vellumark::layout
