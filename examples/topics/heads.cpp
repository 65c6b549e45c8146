// SPDX-License-Identifier: MIT
//
// Headers and footers: on every page, with its number.
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
  doc.Footer("Page {page} of {pages}");
  if (!doc.Create("heads.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.Header("Minutes of the general meeting");
  doc.SetFont(Times, 14, Regular, NoFontEffect);
  for (int item = 1; item <= 40; ++item) {
    // A paragraph that does not fit goes on on the next page.
    doc.WriteMultiText("Item " + std::to_string(item) + ": agreed.", 4);
  }
  doc.Flush();
}
