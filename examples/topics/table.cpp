// SPDX-License-Identifier: MIT
//
// A table: columns, a head, right-aligned numbers.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

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
  if (!doc.Create("table.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  constexpr std::array<std::int16_t, 3> kRight = {260, 380, 515};
  const std::vector<std::array<std::string, 3>> rows = {{"Item", "Pieces", "Price"},
                                                        {"Catalog, thread-sewn", "120", "582.00"},
                                                        {"Guest book, leather", "12", "1,746.00"},
                                                        {"Exercise book", "250", "300.00"}};
  std::int16_t y = 0;
  for (const auto& row : rows) {
    const bool head = y == 0;
    doc.SetFillStyle(head);
    doc.SetFillColor(30, 60, 120);
    if (head) doc.DrawRectangle(0, 0, 515, 26);
    const std::uint8_t ink = head ? 255 : 0;
    doc.SetColor(ink, ink, ink);
    doc.SetFont(Helvetica, 12, head ? Bold : Regular, NoFontEffect);
    doc.SetPosition(8, y + 7);
    doc.WriteText(row[0]);
    for (std::size_t column = 1; column < row.size(); ++column) {
      doc.SetPosition(kRight[column] - 8 - doc.TextWidth(row[column]), y + 7);
      doc.WriteText(row[column]);
    }
    y = static_cast<std::int16_t>(y + 26);
    doc.SetColor(190, 190, 190);
    doc.DrawLine(0, y, 515, y);
  }
  doc.Flush();
}
