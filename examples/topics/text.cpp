// SPDX-License-Identifier: MIT
//
// Text: fonts, styles, effects, alignment.
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
  if (!doc.Create("text.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetFont(Times, 24, Regular, NoFontEffect);
  doc.WriteText("Regular, ");
  doc.SetFont(Times, 24, Bold, NoFontEffect);
  doc.WriteText("bold, ");
  doc.SetFont(Times, 24, Italic, NoFontEffect);
  doc.WriteText("italic", true, 16);

  doc.SetFont(Helvetica, 24, Regular, Underline);
  doc.WriteText("Underlined", true, 8);
  doc.SetFont(Helvetica, 24, Regular, Strikethrough);
  doc.WriteText("Struck through", true, 16);

  doc.SetFont(Courier, 18, Regular, NoFontEffect);
  doc.SetColor(150, 30, 50);
  doc.WriteText("on the left", true, 6, AlignmentConstants::LeftAlign);
  doc.WriteText("centered", true, 6, AlignmentConstants::Center);
  doc.WriteText("on the right", true, 6, AlignmentConstants::RightAlign);

  doc.SetColor(90, 90, 90);
  doc.SetFont(Helvetica, 10, Regular, NoFontEffect);
  doc.SetPosition(250, 300);  // points from the top left corner inside the margins
  doc.WriteText("at 250, 300");
  doc.Flush();
}
