// SPDX-License-Identifier: MIT
//
// Links and bookmarks: to the web, to places of the document, and an outline.
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
  if (!doc.Create("links.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetFont(Times, 20, Bold, NoFontEffect);
  doc.WriteBookmark("Contents");
  doc.WriteText("Contents", true, 10);
  doc.SetFont(Times, 14, Regular, NoFontEffect);
  doc.SetColor(30, 60, 160);
  doc.WriteText("A chapter", true, 6, {}, "#chapter");  // an anchor that comes later
  doc.WriteText("example.org", true, 6, {}, "https://example.org/");

  doc.SetPosition(0, 180);
  doc.SetColor(0, 0, 0);
  doc.SetFont(Times, 20, Bold, NoFontEffect);
  doc.SetAnchor("chapter");
  doc.WriteBookmark("A chapter");  // what readers show beside the pages
  doc.WriteTitle("A chapter");
  doc.SetPosition(0, 210);
  doc.WriteBookmark("A section", 2);
  doc.SetFont(Times, 14, Regular, NoFontEffect);
  doc.WriteText("Readers show the outline beside the page.", true);
  doc.Flush();
}
