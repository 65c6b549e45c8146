// SPDX-License-Identifier: MIT
//
// Shapes: pen, dash, fill; lines, rectangles, circles, ellipses, slices, curves.
#include <vellumark/vellumark.h>

using namespace vellumark;

int main() {
  PDF doc;
  doc.Conforming(true);
  doc.PaperSize(PaperSizeConstants::A5);
  doc.Orientation(OrientationConstants::Landscape);
  doc.Footer("");
  if (!doc.Create("shapes.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetThickness(3);
  doc.SetColor(30, 60, 120);
  doc.DrawLine(0, 10, 515, 10);
  doc.SetDash("8 4");  // 8 points of line, 4 of gap
  doc.DrawLine(0, 25, 515, 25);
  doc.SetDash("");
  doc.SetThickness(1);

  doc.DrawRectangle(0, 60, 150, 100);  // x, y, width, height
  doc.DrawCircle(255, 110, 50);        // center, radius
  doc.DrawEllipse(435, 110, 80, 50);

  doc.SetFillStyle(true);
  doc.SetFillColor(230, 190, 90);
  doc.DrawRectangle(0, 200, 150, 100);
  doc.SetFillColor(150, 30, 50);
  doc.DrawArc(255, 250, 50, 0, 120);  // a slice from 0 to 120 degrees, counter-clockwise
  doc.SetFillColor(60, 120, 90);
  doc.DrawArc(255, 250, 50, 120, 300);
  doc.SetFillColor(170, 200, 230);
  doc.DrawCurve(355, 300, 435, 150, 515, 300);  // toward the second point
  doc.Flush();
}
