// SPDX-License-Identifier: MIT
//
// A web answer: a document in memory, with no file.
#include <iostream>
#include <sstream>
#include <string>

#include <vellumark/vellumark.h>

using namespace vellumark;
using enum FontNumberConstants;
using enum FontStyleConstants;
using enum FontEffectConstants;

int main() {
  std::ostringstream answer;
  PDF doc;
  doc.Conforming(true);
  doc.PaperSize(PaperSizeConstants::A5);
  doc.Orientation(OrientationConstants::Landscape);
  doc.Footer("");
  if (!doc.Create(answer)) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);
  doc.SetFont(Helvetica, 20, Bold, NoFontEffect);
  doc.WriteText("Receipt 4711", true, 12);
  doc.SetFont(Helvetica, 14, Regular, NoFontEffect);
  doc.WriteText("Paid with thanks: 12.50 €");
  doc.Flush();

  const std::string bytes = answer.str();  // what a web server sends
  std::cout << "Content-Type: application/pdf\nContent-Length: " << bytes.size() << "\n\n" << bytes;
}
