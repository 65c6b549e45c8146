// SPDX-License-Identifier: MIT
//
// Shapes: the pen, then one path and its painting operator (PDF Reference, chapter 4).
#include "layout/arc_angles.h"
#include "layout/dash.h"
#include "pdf/arc_path.h"
#include "pdf/content_stream.h"
#include "pdf/decimal.h"

namespace vellumark::pdf {

using document::PagePoint;
using layout::Points;

void PdfWriter::WriteColor(const layout::ColorText& color, ColorOperators operators) {
  if (!state_.oddities.EachMarkIsAStream() && color.IsGray()) {
    Content().Append(color.First(), ' ', operators.gray);
  } else {
    Content().Append(color, ' ', operators.red, operators.gray);
  }
}

void PdfWriter::SetStrokeColor() {
  if (Changes(graphics_.stroke_color, state_.color)) WriteColor(state_.color, {'R', 'G'});
}

void PdfWriter::SetFillColor(const layout::ColorText& color) {
  if (Changes(graphics_.fill_color, color)) WriteColor(color, {'r', 'g'});
}

/// Stroke color and dash, as far as they are not in force.
void PdfWriter::WritePen() {
  SetStrokeColor();
  if (graphics_.dash_known && graphics_.dash == state_.dash.bytes) return;
  graphics_.dash = state_.dash.bytes;
  graphics_.dash_known = true;
  if (state_.oddities.TextIsPasted()) {
    Content().Append('[', state_.dash.bytes, "] 0 d");
  } else {
    Content().Append('[', layout::DashNumbers(state_.dash.bytes), "] 0 d");
  }
}

/// `paint` is the operator that fills and strokes, such as 'B'; in a conforming document a shape
/// that is not to be filled is stroked only, with the operator beside it.
template <class Path>
void PdfWriter::PaintClosedShape(PaintOperators paint, const Path& path) {
  const bool white = state_.oddities.UnfilledShapesAreWhite();
  WriteMark(MarkKind::Shape, [&] {
    WritePen();
    if (state_.fill_style) {
      SetFillColor(state_.fill_color);
    } else if (white) {
      SetFillColor(layout::FormatColor(255, 255, 255));
    }
    if (Changes(graphics_.thickness, state_.thickness)) Content().Append(state_.thickness, " w");
    path();
    Content().Append(state_.fill_style || white ? paint.fill_and_stroke : paint.stroke);
  });
}

void PdfWriter::DrawLine(PagePoint from, PagePoint to) {
  WriteMark(MarkKind::Shape, [&] {
    WritePen();
    if (Changes(graphics_.thickness, state_.thickness)) Content().Append(state_.thickness, " w");
    Content().Append(from.x, ' ', from.y, " m");
    Content().Append(to.x, ' ', to.y, " l");
    Content().Append("S");
  });
}

void PdfWriter::DrawRectangle(PagePoint top_left, Points width, Points height) {
  PaintClosedShape(kOpenPath, [&] {
    Content().Append(top_left.x, ' ', top_left.y - height, ' ', width, ' ', height, " re");
  });
}

/// The first control point is the start itself, so `control` alone pulls.
void PdfWriter::DrawCurve(PagePoint start, PagePoint control, PagePoint end) {
  PaintClosedShape(kClosePath, [&] {
    Content().Append(start.x, ' ', start.y, " m");
    Content().Append(start.x, ' ', start.y, ' ', control.x, ' ', control.y, ' ', end.x, ' ', end.y,
                     " c");
  });
}

void PdfWriter::DrawCircle(PagePoint center, Points radius) {
  DrawQuarters(center, radius, radius, kQuarterControl);
}

void PdfWriter::DrawEllipse(PagePoint center, Points rx, Points ry) {
  const bool bulges = state_.oddities.EllipsesBulge();
  // A quarter's first control point is its start, and the second the corner of the bounding box.
  DrawQuarters(center, rx, ry, bulges ? QuarterControl{0, 1} : kQuarterControl);
}

/// Four Bézier segments, clockwise from the leftmost point.
void PdfWriter::DrawQuarters(PagePoint center, Points rx, Points ry, QuarterControl control) {
  const auto [x, y] = center;
  const Points left = x - rx;
  const Points right = x + rx;
  const Points top = y + ry;
  const Points bottom = y - ry;
  const double from_start_x = rx.value() * control.of_start;
  const double from_start_y = ry.value() * control.of_start;
  const double from_end_x = rx.value() * control.of_end;
  const double from_end_y = ry.value() * control.of_end;
  const auto place = [this](Points at, double distance) {
    return Decimal{Placed(at.value() + distance)};
  };
  PaintClosedShape(kClosePath, [&, x = x, y = y] {
    auto& lines = Content();
    lines.Append(left, ' ', y, " m");
    lines.Append(left, ' ', place(y, from_start_y), ' ', place(x, -from_end_x), ' ', top, ' ', x,
                 ' ', top, " c");
    lines.Append(place(x, from_start_x), ' ', top, ' ', right, ' ', place(y, from_end_y), ' ',
                 right, ' ', y, " c");
    lines.Append(right, ' ', place(y, -from_start_y), ' ', place(x, from_end_x), ' ', bottom, ' ',
                 x, ' ', bottom, " c");
    lines.Append(place(x, -from_start_x), ' ', bottom, ' ', left, ' ', place(y, -from_end_y), ' ',
                 left, ' ', y, " c");
  });
}

/// A coordinate as the output has it: rounded to whole points, or as it is.
double PdfWriter::Placed(double value) const {
  return state_.oddities.CurvesHaveWholePoints() ? RoundedPoints(static_cast<float>(value)) : value;
}

void PdfWriter::DrawArc(PagePoint center, Points radius, float th1, float th2) {
  layout::NormalizeAngles(th1, th2);
  const ArcPath path = BuildArc(center, radius, th1, th2);
  const auto place = [this](double value) { return Decimal{Placed(value)}; };
  PaintClosedShape(kClosePath, [&] {
    Content().Append(center.x, ' ', center.y, " m");
    Content().Append(place(path.start_x), ' ', place(path.start_y), " l");
    for (const ArcSegment& segment : path.segments) {
      Content().Append(place(segment.control1_x), ' ', place(segment.control1_y), ' ',
                       place(segment.control2_x), ' ', place(segment.control2_y), ' ',
                       place(segment.end_x), ' ', place(segment.end_y), " c");
    }
  });
}

}  // namespace vellumark::pdf
