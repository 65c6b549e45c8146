// SPDX-License-Identifier: MIT
//
// The six drawing methods: check against the usable box, then let the writer draw.
#include "document/document_model.h"

namespace vellumark::document {

template <class Check, class Draw>
RefusalNote DocumentModel::TryDrawShape(const Check& check, const Draw& draw) {
  if (const RefusalNote refused = CheckPage()) return refused;
  if (const RefusalNote refused = check(Box())) return refused;
  if (const RefusalNote refused = writer_.RoomFor({.marks = 1})) return refused;
  draw();
  return {};
}

template <class Check, class Draw>
RefusalNote DocumentModel::DrawShape(const Check& check, const Draw& draw) noexcept {
  return Attempt([&] { return TryDrawShape(check, draw); });
}

RefusalNote DocumentModel::DrawLine(Points x1, Points y1, Points x2, Points y2) noexcept {
  return DrawShape(
      [&](const UsableBox& box) {
        return box.CheckPoints({{x1, y1}, {x2, y2}});
      },
      [&] { writer_.DrawLine(OnPage(x1, y1), OnPage(x2, y2)); });
}

RefusalNote DocumentModel::TryDrawRectangle(Points x, Points y, Points width, Points height) {
  return TryDrawShape(
      [&](const UsableBox& box) {
        return box.CheckRectangle({x, y}, width, height);
      },
      [&] { writer_.DrawRectangle(OnPage(x, y), width, height); });
}

RefusalNote DocumentModel::DrawRectangle(Points x, Points y, Points width, Points height) noexcept {
  return Attempt([&] { return TryDrawRectangle(x, y, width, height); });
}

RefusalNote DocumentModel::DrawCurve(Points x1, Points y1, Points x2, Points y2, Points x3,
                                     Points y3) noexcept {
  return DrawShape(
      [&](const UsableBox& box) {
        return box.CheckPoints({{x1, y1}, {x2, y2}, {x3, y3}});
      },
      [&] { writer_.DrawCurve(OnPage(x1, y1), OnPage(x2, y2), OnPage(x3, y3)); });
}

RefusalNote DocumentModel::TryDrawCircle(Points x, Points y, Points r) {
  return TryDrawShape(
      [&](const UsableBox& box) {
        return box.CheckEllipse({x, y}, r, r);
      },
      [&] { writer_.DrawCircle(OnPage(x, y), r); });
}

RefusalNote DocumentModel::DrawCircle(Points x, Points y, Points r) noexcept {
  return Attempt([&] { return TryDrawCircle(x, y, r); });
}

RefusalNote DocumentModel::DrawEllipse(Points x, Points y, Points rx, Points ry) noexcept {
  return DrawShape(
      [&](const UsableBox& box) {
        return box.CheckEllipse({x, y}, rx, ry);
      },
      [&] { writer_.DrawEllipse(OnPage(x, y), rx, ry); });
}

RefusalNote DocumentModel::DrawArc(Points x, Points y, Points r, float th1, float th2) noexcept {
  return DrawShape(
      [&](const UsableBox& box) {
        return box.CheckEllipse({x, y}, r, r);
      },
      [&] { writer_.DrawArc(OnPage(x, y), r, th1, th2); });
}

}  // namespace vellumark::document
