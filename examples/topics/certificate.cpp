// SPDX-License-Identifier: MIT
//
// A certificate: a frame, large centered lines, a seal.
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
  if (!doc.Create("certificate.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetColor(120, 90, 30);
  doc.SetThickness(4);
  doc.DrawRectangle(0, 0, 515, 340);
  doc.SetThickness(1);
  doc.DrawRectangle(8, 8, 499, 324);

  doc.SetPosition(0, 60);
  doc.SetFont(Times, 36, Bold, NoFontEffect);
  doc.WriteText("Certificate", true, 24, AlignmentConstants::Center);
  doc.SetColor(0, 0, 0);
  doc.SetFont(Times, 16, Regular, NoFontEffect);
  doc.WriteText("The bindery certifies that", true, 16, AlignmentConstants::Center);
  doc.SetFont(Times, 28, BoldItalic, NoFontEffect);
  doc.WriteText("Zoë Świątek", true, 16, AlignmentConstants::Center);
  doc.SetFont(Times, 16, Regular, NoFontEffect);
  doc.WriteText("has bound a book by hand.", true, 0, AlignmentConstants::Center);

  doc.SetColor(150, 30, 50);
  doc.SetFillStyle(true);
  doc.SetFillColor(150, 30, 50);
  doc.DrawCircle(430, 270, 34);
  doc.SetFillColor(255, 255, 255);
  doc.DrawCircle(430, 270, 26);
  doc.SetPosition(420, 259);
  doc.SetFont(ZapfDingbats, 24, Regular, NoFontEffect);
  doc.WriteText("✓");
  doc.Flush();
}
