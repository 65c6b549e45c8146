// SPDX-License-Identifier: MIT
//
// Shapes (PostScript Language Reference). In a classic document a shape spells out its path, then
// its pen and its painting operators; in a conforming one it sets what is not in force, and calls
// the procedures of the prolog:
//
//     newpath                         2 W
//     72 700 moveto                   72 700 172 700 L
//     172 700 lineto
//     closepath
//     0 0 0 setrgbcolor
//     2 setlinewidth
//     stroke
#include <cmath>

#include "layout/dash.h"
#include "ps/ps_writer.h"
#include "ps/real.h"

namespace vellumark::ps {

using document::PagePoint;
using layout::ColorText;
using layout::Points;

namespace {

constexpr double kFullTurn = 360;

struct Angles {
  float from = 0;
  float to = 0;
};

/// The same arc, counter-clockwise from th1 to th2: from 0 to 360 degrees, and over a full turn at
/// most once. Angles that are not numbers are for Real to refuse.
Angles WithoutTurns(float th1, float th2) {
  if (!std::isfinite(th1) || !std::isfinite(th2)) return {th1, th2};
  const double given = double{th2} - double{th1};
  const double from = std::fmod(double{th1}, kFullTurn);
  double span = std::fmod(std::fmod(double{th2}, kFullTurn) - from, kFullTurn);
  if (span < 0) span += kFullTurn;
  if (given >= kFullTurn) span += kFullTurn;
  const double first = from < 0 ? from + kFullTurn : from;
  return {static_cast<float>(first), static_cast<float>(first + span)};
}

}  // namespace

void PsWriter::MoveTo(PagePoint point) { lines_.Append(point.x, ' ', point.y, " moveto"); }

/// Downwards and round from the top left corner.
void PsWriter::RectanglePath(PagePoint top_left, Points width, Points height) {
  if (!state_.oddities.MarksAreSpelledOut()) {
    lines_.Append(top_left.x, ' ', top_left.y, ' ', width, ' ', height, " R");
    return;
  }
  lines_.Append("newpath");
  MoveTo(top_left);
  lines_.Append(width, " 0 rlineto");
  lines_.Append("0 -", height, " rlineto");
  lines_.Append('-', width, " 0 rlineto");
  lines_.Append("0 ", height, " rlineto");
  lines_.Append("closepath");
}

/// Fills the path and keeps it for the stroke.
void PsWriter::Fill(const ColorText& color) {
  lines_.Append(color, " setrgbcolor");
  lines_.Append("gsave");
  lines_.Append("fill");
  lines_.Append("grestore");
}

void PsWriter::Stroke() {
  lines_.Append(state_.color, " setrgbcolor");
  lines_.Append(state_.thickness, " setlinewidth");
  lines_.Append("stroke");
}

void PsWriter::FillAndStroke() {
  WriteDash();
  if (state_.fill_style) Fill(state_.fill_color);
  Stroke();
}

/// A solid line of a classic document leaves the dash that is in force.
void PsWriter::WriteDash() {
  if (state_.oddities.DashesStayInForce() && state_.dash.bytes.empty()) return;
  if (state_.oddities.TextIsPasted()) {
    lines_.Append('[', state_.dash.bytes, "] 0 setdash");
  } else {
    lines_.Append('[', layout::DashNumbers(state_.dash.bytes), "]D");
  }
}

void PsWriter::WriteColor(const ColorText& color, std::string_view rgb, std::string_view gray) {
  if (color.IsGray()) {
    lines_.Append(color.First(), gray);
  } else {
    lines_.Append(color, rgb);
  }
}

void PsWriter::SetColor(const ColorText& color) {
  if (Changes(graphics_.color, color)) WriteColor(color, " C", " G");
}

void PsWriter::ChangeDash(std::string_view dash) {
  if (dash_ == dash) return;
  if (!mark_.dash_changed) {
    std::swap(marked_dash_, dash_);
    mark_.dash_changed = true;
  }
  dash_ = dash;
}

/// Color, width and dash, as far as they are not in force.
void PsWriter::WritePen() {
  SetColor(state_.color);
  if (Changes(graphics_.thickness, state_.thickness)) lines_.Append(state_.thickness, " W");
  if (dash_ == state_.dash.bytes) return;
  WriteDash();
  ChangeDash(state_.dash.bytes);
}

/// A path, and what paints it; in a conforming document the pen before it.
template <class Path>
void PsWriter::PaintClosedShape(const Path& path) {
  if (state_.oddities.MarksAreSpelledOut()) {
    path();
    FillAndStroke();
    return;
  }
  WritePen();
  if (state_.fill_style && Changes(graphics_.fill_color, state_.fill_color)) {
    WriteColor(state_.fill_color, " H", " h");
  }
  path();
  lines_.Append(state_.fill_style ? 'B' : 'S');
}

void PsWriter::DrawLine(PagePoint from, PagePoint to) {
  if (!state_.oddities.MarksAreSpelledOut()) {
    WritePen();
    lines_.Append(from.x, ' ', from.y, ' ', to.x, ' ', to.y, " L");
    return;
  }
  lines_.Append("newpath");
  MoveTo(from);
  lines_.Append(to.x, ' ', to.y, " lineto");
  if (state_.oddities.LinesAreClosed()) lines_.Append("closepath");
  WriteDash();
  Stroke();
}

void PsWriter::DrawRectangle(PagePoint top_left, Points width, Points height) {
  PaintClosedShape([&] { RectanglePath(top_left, width, height); });
}

/// The first control point is the start itself, so `control` alone pulls.
void PsWriter::DrawCurve(PagePoint start, PagePoint control, PagePoint end) {
  PaintClosedShape([&] {
    if (!state_.oddities.MarksAreSpelledOut()) {
      lines_.Append(control.x, ' ', control.y, ' ', end.x, ' ', end.y, ' ', start.x, ' ', start.y,
                    " V");
      return;
    }
    lines_.Append("newpath");
    MoveTo(start);
    lines_.Append(start.x, ' ', start.y, ' ', control.x, ' ', control.y, ' ', end.x, ' ', end.y,
                  " curveto");
    lines_.Append(start.x, ' ', start.y, " lineto");
    lines_.Append("closepath");
  });
}

void PsWriter::DrawCircle(PagePoint center, Points radius) {
  PaintClosedShape([&] {
    if (!state_.oddities.MarksAreSpelledOut()) {
      lines_.Append(center.x, ' ', center.y, ' ', radius, " O");
      return;
    }
    lines_.Append("newpath");
    lines_.Append(center.x, ' ', center.y, ' ', radius, " 0 360 arc");
    lines_.Append("closepath");
  });
}

/// In a classic document a unit circle in a scaled coordinate system, which is put back before the
/// stroke.
void PsWriter::DrawEllipse(PagePoint center, Points rx, Points ry) {
  PaintClosedShape([&] {
    if (!state_.oddities.MarksAreSpelledOut()) {
      lines_.Append(center.x, ' ', center.y, ' ', rx, ' ', ry, " E");
      return;
    }
    lines_.Append("newpath");
    lines_.Append("/mtrx matrix def");
    lines_.Append("/savematrix mtrx currentmatrix def");
    lines_.Append(center.x, ' ', center.y, " translate");
    lines_.Append(rx, ' ', ry, " scale");
    lines_.Append("0 0 1 0 360 arc");
    lines_.Append("savematrix setmatrix");
    lines_.Append("closepath");
  });
}

/// The interpreter brings the second angle above the first.
void PsWriter::DrawArc(PagePoint center, Points radius, float th1, float th2) {
  const Angles angles =
      state_.oddities.ArcsTurnAsOftenAsTold() ? Angles{th1, th2} : WithoutTurns(th1, th2);
  const Real from(angles.from);
  const Real to(angles.to);
  PaintClosedShape([&] {
    if (!state_.oddities.MarksAreSpelledOut()) {
      lines_.Append(center.x, ' ', center.y, ' ', radius, ' ', from, ' ', to, " A");
      return;
    }
    lines_.Append("newpath");
    MoveTo(center);
    lines_.Append(center.x, ' ', center.y, ' ', radius, ' ', from, ' ', to, " arc");
    lines_.Append("closepath");
  });
}

}  // namespace vellumark::ps
