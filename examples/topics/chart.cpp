// SPDX-License-Identifier: MIT
//
// A chart: bars with a scale and labels.
#include <array>
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
  if (!doc.Create("chart.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  constexpr std::array<int, 6> kLoans = {310, 420, 380, 560, 610, 480};
  constexpr std::array<const char*, 6> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun"};
  doc.SetFont(Helvetica, 16, Bold, NoFontEffect);
  doc.WriteText("Loans of the first half-year");
  doc.SetFont(Helvetica, 10, Regular, NoFontEffect);
  for (int scale = 0; scale <= 600; scale += 200) {
    const int y = 300 - scale * 2 / 5;
    doc.SetColor(200, 200, 200);
    doc.DrawLine(40, y, 515, y);
    doc.SetColor(90, 90, 90);
    const std::string number = std::to_string(scale);
    doc.SetPosition(32 - doc.TextWidth(number), y - 5);
    doc.WriteText(number);
  }
  doc.SetFillStyle(true);
  doc.SetFillColor(30, 60, 120);
  for (std::size_t i = 0; i < kLoans.size(); ++i) {
    const int x = 60 + 76 * static_cast<int>(i);
    const int height = kLoans[i] * 2 / 5;
    doc.SetColor(30, 60, 120);
    doc.DrawRectangle(x, 300 - height, 50, height);
    doc.SetColor(90, 90, 90);
    doc.SetPosition(x + 25 - doc.TextWidth(kMonths[i]) / 2, 306);
    doc.WriteText(kMonths[i]);
  }
  doc.Flush();
}
