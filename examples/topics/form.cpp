// SPDX-License-Identifier: MIT
//
// A form to fill in by hand: labels, boxes for letters, boxes to tick.
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
  if (!doc.Create("form.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetFont(Helvetica, 18, Bold, NoFontEffect);
  doc.WriteText("Library card", true, 16);
  int y = 50;
  for (const char* const label : {"Last name", "First name", "City"}) {
    doc.SetFont(Helvetica, 9, Regular, NoFontEffect);
    doc.SetPosition(0, y + 6);
    doc.WriteText(label);
    for (int box = 0; box < 20; ++box) doc.DrawRectangle(100 + 20 * box, y, 18, 22);
    y += 36;
  }
  doc.SetPosition(0, y + 6);
  doc.WriteText("Send reminders");
  int x = 100;
  for (const char* const choice : {"by letter", "by mail", "never"}) {
    doc.DrawRectangle(x, y + 4, 12, 12);
    doc.SetPosition(x + 18, y + 6);
    doc.WriteText(choice);
    x += 100;
  }
  doc.DrawLine(300, 300, 515, 300);
  doc.SetPosition(300, 304);
  doc.WriteText("Date and signature");
  doc.Flush();
}
