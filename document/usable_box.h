// SPDX-License-Identifier: MIT
//
// UsableBox: the area inside the page margins, and whether a shape lies in it.
//
// Coordinates count from its top left corner, y downwards. A shape is accepted as a whole or
// refused as a whole; the edges belong to the box. A circle, ellipse or slice must also keep its
// radius within its center's distance to the left and top edges.
#pragma once

#include <initializer_list>

#include "document/refusal_note.h"
#include "layout/points.h"

namespace vellumark::document {

struct UsableBox {
  layout::Points width;
  layout::Points height;

  /// A caller's point.
  struct Point {
    layout::Points x;
    layout::Points y;
  };

  /// Lines and curves: every point.
  [[nodiscard]] RefusalNote CheckPoints(std::initializer_list<Point> points) const;

  /// A rectangle by its top left corner.
  [[nodiscard]] RefusalNote CheckRectangle(Point corner, layout::Points w, layout::Points h) const;

  /// An ellipse by its center; a circle has equal radii.
  [[nodiscard]] RefusalNote CheckEllipse(Point center, layout::Points rx, layout::Points ry) const;

  /// The right and bottom edge alone.
  [[nodiscard]] RefusalNote CheckReach(int right, int bottom) const;
};

}  // namespace vellumark::document
