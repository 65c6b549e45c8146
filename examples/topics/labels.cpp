// SPDX-License-Identifier: MIT
//
// Labels: a sheet of three columns and four rows.
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
  if (!doc.Create("labels.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  constexpr int kWidth = 165;
  constexpr int kHeight = 80;
  doc.SetDash("2 3");
  for (int number = 0; number < 12; ++number) {
    const int x = number % 3 * (kWidth + 10);
    const int y = number / 3 * (kHeight + 6);
    doc.SetColor(170, 170, 170);
    doc.DrawRectangle(x, y, kWidth, kHeight);
    doc.SetColor(0, 0, 0);
    doc.SetFont(Helvetica, 14, Bold, NoFontEffect);
    doc.SetPosition(x + 12, y + 16);
    doc.WriteText("Shelf " + std::to_string(100 + number), true, 6);
    doc.SetFont(Helvetica, 10, Regular, NoFontEffect);
    doc.WriteText("Bücherei Kirchberg");
  }
  doc.Flush();
}
