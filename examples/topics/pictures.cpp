// SPDX-License-Identifier: MIT
//
// Pictures: from a file, fitted into a box, transparent, from memory.
#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

#include <vellumark/vellumark.h>

using namespace vellumark;

int main() {
  PDF doc;
  doc.Conforming(true);
  doc.PaperSize(PaperSizeConstants::A5);
  doc.Orientation(OrientationConstants::Landscape);
  doc.Footer("");
  if (!doc.Create("pictures.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.DrawPicture(VELLUMARK_PICTURES "/landscape.jpg", {}, "", EncodingConstants::Original);

  doc.SetPictureDimensions(230, 200);  // fitted into a box, in proportion
  doc.PicturesEnlarged(true);
  doc.SetPosition(0, 100);
  doc.DrawPicture(VELLUMARK_PICTURES "/landscape.gif", {}, "", EncodingConstants::Flate);

  doc.SetFillStyle(true);
  doc.SetFillColor(230, 190, 90);
  doc.DrawRectangle(300, 0, 215, 240);
  doc.SetPictureDimensions(100, 100);
  doc.SetPosition(357, 20);
  doc.DrawPicture(VELLUMARK_PICTURES "/landscape_alpha.png", {}, "", EncodingConstants::Flate);

  std::ifstream file(VELLUMARK_PICTURES "/logo.png", std::ios::binary);
  const std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(file), {});
  doc.SetPosition(357, 115);
  doc.DrawPicture(bytes, {}, "https://example.org/", EncodingConstants::Flate);  // with a link
  doc.Flush();
}
