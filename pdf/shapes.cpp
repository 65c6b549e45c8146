// SPDX-License-Identifier: MIT
//
// Shapes: the pen, then one path and its painting operator (PDF Reference 1.2, chapter 8).
#include "layout/arc_angles.h"
#include "pdf/arc_path.h"
#include "pdf/content_stream.h"
#include "pdf/oddities.h"

namespace vellumark::pdf {

using document::PagePoint;
using layout::Points;

template <class Path>
void PdfWriter::PaintClosedShape(const Path& path) {
  WriteContentStream(GraphicsState::Saved, [&] {
    WritePen();
    lines_.Append(oddities::ShapeFill(state_), " rg");
    lines_.Append(state_.thickness, " w");
    path();
  });
}

/// Stroke colour and dash; a solid line is the default of each stream's own graphics state.
void PdfWriter::WritePen() {
  lines_.Append(state_.color.view(), " RG");
  if (!state_.dash.bytes.empty()) lines_.Append('[', state_.dash.bytes, "] 0 d");
}

void PdfWriter::DrawLine(PagePoint from, PagePoint to) {
  WriteContentStream(GraphicsState::Saved, [&] {
    WritePen();
    lines_.Append(state_.thickness, " w");
    lines_.Append(from.x, ' ', from.y, " m");
    lines_.Append(to.x, ' ', to.y, " l");
    lines_.Append("S");
  });
}

void PdfWriter::DrawRectangle(PagePoint top_left, Points width, Points height) {
  PaintClosedShape([&] {
    lines_.Append(top_left.x, ' ', top_left.y - height, ' ', width, ' ', height, " re");
    lines_.Append("B");
  });
}

/// The first control point is the start itself, so `control` alone pulls.
void PdfWriter::DrawCurve(PagePoint start, PagePoint control, PagePoint end) {
  PaintClosedShape([&] {
    lines_.Append(start.x, ' ', start.y, " m");
    lines_.Append(start.x, ' ', start.y, ' ', control.x, ' ', control.y, ' ', end.x, ' ', end.y,
                  " c");
    lines_.Append("b");
  });
}

void PdfWriter::DrawCircle(PagePoint center, Points radius) {
  // Single precision throughout: the whole points below are rounded from it.
  const float control = radius.value() * ArcControl(0, oddities::kCirclePi / 2);
  const auto [x, y] = center;
  const Points near_left = RoundedPoints(x.value() - control);
  const Points near_right = RoundedPoints(x.value() + control);
  const Points near_top = RoundedPoints(y.value() + control);
  const Points near_bottom = RoundedPoints(y.value() - control);
  const Points left = x - radius;
  const Points right = x + radius;
  const Points top = y + radius;
  const Points bottom = y - radius;
  PaintClosedShape([&, x = x, y = y] {
    const auto curve = [&](Points x1, Points y1, Points x2, Points y2, Points x3, Points y3) {
      lines_.Append(x1, ' ', y1, ' ', x2, ' ', y2, ' ', x3, ' ', y3, " c");
    };
    lines_.Append(left, ' ', y, " m");
    curve(left, near_top, near_left, top, x, top);
    curve(near_right, top, right, near_top, right, y);
    curve(right, near_bottom, near_right, bottom, x, bottom);
    curve(near_left, bottom, left, near_bottom, left, y);
    lines_.Append("b");
  });
}

void PdfWriter::DrawEllipse(PagePoint center, Points rx, Points ry) {
  const auto [x, y] = center;
  const Points left = x - rx;
  const Points right = x + rx;
  const Points top = y + ry;
  const Points bottom = y - ry;
  PaintClosedShape([&, x = x, y = y] {
    const auto quarter = [&](PagePoint start, PagePoint corner, PagePoint end) {
      const auto [first, second] = oddities::ControlsOfQuarter(start, corner);
      lines_.Append(first.x, ' ', first.y, ' ', second.x, ' ', second.y, ' ', end.x, ' ', end.y,
                    " c");
    };
    lines_.Append(left, ' ', y, " m");
    quarter({left, y}, {left, top}, {x, top});
    quarter({x, top}, {right, top}, {right, y});
    quarter({right, y}, {right, bottom}, {x, bottom});
    quarter({x, bottom}, {left, bottom}, {left, y});
    lines_.Append("b");
  });
}

void PdfWriter::DrawArc(PagePoint center, Points radius, float th1, float th2) {
  layout::NormalizeAngles(th1, th2);
  const ArcPath path = BuildArc(center, radius, th1, th2);
  PaintClosedShape([&] {
    lines_.Append(center.x, ' ', center.y, " m");
    lines_.Append(path.start_x, ' ', path.start_y, " l");
    for (const ArcSegment& segment : path.segments) {
      lines_.Append(segment.control1_x, ' ', segment.control1_y, ' ', segment.control2_x, ' ',
                    segment.control2_y, ' ', segment.end_x, ' ', segment.end_y, " c");
    }
    lines_.Append("b");
  });
}

}  // namespace vellumark::pdf
