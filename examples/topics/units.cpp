// SPDX-License-Identifier: MIT
//
// Units: the page, its margins, and positions in points.
#include <cstdint>
#include <string>

#include <vellumark/vellumark.h>

using namespace vellumark;
using enum FontNumberConstants;
using enum FontStyleConstants;
using enum FontEffectConstants;

int main() {
  PDF doc;
  doc.Conforming(true);
  doc.PaperSize(PaperSizeConstants::A5);
  doc.Orientation(OrientationConstants::Landscape);
  doc.Footer("");
  if (!doc.Create("units.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  std::int16_t width = 0;
  std::int16_t height = 0;
  doc.GetPageDimensions(width, height);
  width = static_cast<std::int16_t>(width - 80);  // without the margins
  height = static_cast<std::int16_t>(height - 80);
  doc.SetFont(Helvetica, 9, Regular, NoFontEffect);

  doc.SetColor(210, 210, 210);  // a grid of 50 points
  for (int x = 0; x <= width; x += 50) doc.DrawLine(x, 0, x, height);
  for (int y = 0; y <= height; y += 50) doc.DrawLine(0, y, width, y);
  doc.SetColor(120, 120, 120);
  for (int x = 50; x < width - 20; x += 50) {
    doc.SetPosition(x + 2, 2);
    doc.WriteText(std::to_string(x));
  }
  for (int y = 50; y < height - 10; y += 50) {
    doc.SetPosition(2, y + 2);
    doc.WriteText(std::to_string(y));
  }
  doc.SetColor(30, 60, 120);
  doc.SetThickness(2);
  doc.DrawRectangle(0, 0, width, height);  // the usable area
  doc.SetThickness(1);

  doc.SetColor(150, 30, 50);  // a text, and the point where it begins
  doc.SetFillStyle(true);
  doc.SetFillColor(150, 30, 50);
  doc.DrawCircle(150, 100, 3);
  doc.SetFont(Helvetica, 24, Regular, NoFontEffect);
  doc.SetPosition(150, 100);
  doc.WriteText("SetPosition(150, 100)");

  doc.SetFillColor(230, 190, 90);
  doc.DrawRectangle(50, 200, 100, 50);
  doc.DrawArc(350, 250, 50, 0, 60);
  doc.SetFont(Helvetica, 10, Regular, NoFontEffect);
  doc.SetPosition(50, 256);
  doc.WriteText("DrawRectangle(50, 200, 100, 50)");
  doc.SetPosition(300, 256);
  doc.WriteText("DrawArc(350, 250, 50, 0, 60)");
  doc.Flush();
}
