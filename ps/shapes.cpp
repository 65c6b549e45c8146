// SPDX-License-Identifier: MIT
//
// Shapes: one path, then the pen and its painting operators (PostScript Language Reference).
#include "ps/oddities.h"
#include "ps/ps_writer.h"
#include "ps/real.h"

namespace vellumark::ps {

using document::PagePoint;
using layout::Points;

void PsWriter::MoveTo(PagePoint point) { lines_.Append(point.x, ' ', point.y, " moveto"); }

/// Downwards and round from the top left corner.
void PsWriter::RectanglePath(PagePoint top_left, Points width, Points height) {
  lines_.Append("newpath");
  MoveTo(top_left);
  lines_.Append(width, " 0 rlineto");
  lines_.Append("0 -", height, " rlineto");
  lines_.Append('-', width, " 0 rlineto");
  lines_.Append("0 ", height, " rlineto");
  lines_.Append("closepath");
}

/// Fills the path and keeps it for the stroke.
void PsWriter::Fill(std::string_view color) {
  lines_.Append(color, " setrgbcolor");
  lines_.Append("gsave");
  lines_.Append("fill");
  lines_.Append("grestore");
}

void PsWriter::Stroke() {
  lines_.Append(state_.color.view(), " setrgbcolor");
  lines_.Append(state_.thickness, " setlinewidth");
  lines_.Append("stroke");
}

void PsWriter::FillAndStroke() {
  oddities::WriteDash(state_, lines_);
  if (state_.fill_style) Fill(state_.fill_color.view());
  Stroke();
}

void PsWriter::DrawLine(PagePoint from, PagePoint to) {
  lines_.Append("newpath");
  MoveTo(from);
  lines_.Append(to.x, ' ', to.y, " lineto");
  oddities::EndLinePath(lines_);
  oddities::WriteDash(state_, lines_);
  Stroke();
}

void PsWriter::DrawRectangle(PagePoint top_left, Points width, Points height) {
  RectanglePath(top_left, width, height);
  FillAndStroke();
}

/// The first control point is the start itself, so `control` alone pulls.
void PsWriter::DrawCurve(PagePoint start, PagePoint control, PagePoint end) {
  lines_.Append("newpath");
  MoveTo(start);
  lines_.Append(start.x, ' ', start.y, ' ', control.x, ' ', control.y, ' ', end.x, ' ', end.y,
                " curveto");
  lines_.Append(start.x, ' ', start.y, " lineto");
  lines_.Append("closepath");
  FillAndStroke();
}

void PsWriter::DrawCircle(PagePoint center, Points radius) {
  lines_.Append("newpath");
  lines_.Append(center.x, ' ', center.y, ' ', radius, " 0 360 arc");
  lines_.Append("closepath");
  FillAndStroke();
}

/// A unit circle in a scaled coordinate system, which is put back before the stroke.
void PsWriter::DrawEllipse(PagePoint center, Points rx, Points ry) {
  lines_.Append("newpath");
  lines_.Append("/mtrx matrix def");
  lines_.Append("/savematrix mtrx currentmatrix def");
  lines_.Append(center.x, ' ', center.y, " translate");
  lines_.Append(rx, ' ', ry, " scale");
  lines_.Append("0 0 1 0 360 arc");
  lines_.Append("savematrix setmatrix");
  lines_.Append("closepath");
  FillAndStroke();
}

/// The angles are written as given; the interpreter brings the second above the first.
void PsWriter::DrawArc(PagePoint center, Points radius, float th1, float th2) {
  const Real from(th1);
  const Real to(th2);
  lines_.Append("newpath");
  MoveTo(center);
  lines_.Append(center.x, ' ', center.y, ' ', radius, ' ', from, ' ', to, " arc");
  lines_.Append("closepath");
  FillAndStroke();
}

}  // namespace vellumark::ps
