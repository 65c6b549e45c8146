// SPDX-License-Identifier: MIT
//
// Paragraphs: wrapped, justified, aligned, beside each other.
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
  if (!doc.Create("paragraphs.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  const std::string text =
      "A paragraph is broken at blanks into lines of the width that you give it, or that is left "
      "up to the right margin. It goes on on a new page if the page is full.";
  doc.SetFont(Times, 12, Regular, NoFontEffect);
  doc.WriteMultiText(text, 3);  // 3 points between lines
  doc.SetPosition(0, 70);
  doc.WriteMultiText(text, 3, {}, true);  // justified
  doc.SetPosition(0, 140);
  doc.WriteMultiText(text, 3, AlignmentConstants::Center, false, 350);

  doc.SetPosition(0, 220);
  doc.WriteMultiText(text, 3, {}, true, 240);  // 240 points wide
  doc.SetPosition(275, 220);
  doc.SetColor(150, 30, 50);
  doc.WriteMultiText(text, 3, {}, true, 240);
  doc.Flush();
}
