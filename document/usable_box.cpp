// SPDX-License-Identifier: MIT
#include "document/usable_box.h"

namespace vellumark::document {
namespace {

using layout::Points;

RefusalNote CheckNotNegative(std::initializer_list<Points> values) {
  for (const Points value : values) {
    if (value < 0) return {RefusalReason::NegativeCoordinate, value.value()};
  }
  return {};
}

}  // namespace

RefusalNote UsableBox::CheckPoints(std::initializer_list<Point> points) const {
  for (const Point& point : points) {
    if (const auto refused = CheckNotNegative({point.x, point.y})) return refused;
    if (const auto refused = CheckReach(point.x.value(), point.y.value())) return refused;
  }
  return {};
}

RefusalNote UsableBox::CheckRectangle(Point corner, Points w, Points h) const {
  if (const auto refused = CheckNotNegative({corner.x, corner.y, w, h})) return refused;
  return CheckReach(corner.x.value() + w.value(), corner.y.value() + h.value());
}

RefusalNote UsableBox::CheckEllipse(Point center, Points rx, Points ry) const {
  if (const auto refused = CheckNotNegative({center.x, center.y, rx, ry})) return refused;
  if (rx > center.x) return {RefusalReason::RadiusBeyondEdge, rx.value(), center.x.value()};
  if (ry > center.y) return {RefusalReason::RadiusBeyondEdge, ry.value(), center.y.value()};
  return CheckReach(center.x.value() + rx.value(), center.y.value() + ry.value());
}

// Sums of two coordinates are taken in `int`: one beyond 16 bits lies beyond the box as well.
RefusalNote UsableBox::CheckReach(int right, int bottom) const {
  if (right > width.value()) return {RefusalReason::BeyondRightMargin, right, width.value()};
  if (bottom > height.value()) return {RefusalReason::BeyondBottomMargin, bottom, height.value()};
  return {};
}

}  // namespace vellumark::document
