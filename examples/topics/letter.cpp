// SPDX-License-Identifier: MIT
//
// A letter: sender, address, date and text.
#include <vellumark/vellumark.h>

using namespace vellumark;
using enum FontNumberConstants;
using enum FontStyleConstants;
using enum FontEffectConstants;

int main() {
  PDF doc;
  doc.Conforming(true);
  doc.PaperSize(PaperSizeConstants::A5);
  doc.Footer("");
  if (!doc.Create("letter.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetFont(Helvetica, 9, Regular, NoFontEffect);
  doc.SetColor(90, 90, 90);
  doc.WriteText("Lindenhof Bindery – Sülzgasse 4 – 8300 Kirchberg", true, 14);
  doc.SetColor(0, 0, 0);
  doc.SetFont(Times, 12, Regular, NoFontEffect);
  for (const char* const line : {"Bücherei Kirchberg", "Marktplatz 1", "8300 Kirchberg"}) {
    doc.WriteText(line, true, 2);
  }
  doc.SetPosition(0, 130);
  doc.WriteText("Kirchberg, May 2, 2024", true, 20, AlignmentConstants::RightAlign);
  doc.SetPosition(0, 180);
  doc.SetFont(Times, 12, Bold, NoFontEffect);
  doc.WriteText("Your atlases", true, 12);
  doc.SetFont(Times, 12, Regular, NoFontEffect);
  doc.WriteMultiText(
      "The atlases are bound. Please tell us when somebody is there to take them; "
      "they weigh more than one person should carry.",
      3, {}, true);
  doc.WriteText("", true, 8);
  doc.WriteText("Yours sincerely", true, 40);
  doc.WriteText("Anna Linden");
  doc.Flush();
}
