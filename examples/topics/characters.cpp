// SPDX-License-Identifier: MIT
//
// Fonts and characters: fourteen fonts, 315 Latin characters, symbols.
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
  if (!doc.Create("characters.pdf")) return 1;
  doc.NewPage(40, 40, 40, 40, 255, 255, 255);

  doc.SetFont(Times, 16, Regular, NoFontEffect);
  doc.WriteText("Times: Łódź, Århus, Þingvellir, Győr, İzmir, Plzeň", true, 8);
  doc.SetFont(Helvetica, 16, Regular, NoFontEffect);
  doc.WriteText("Helvetica: “quoted” – 20 € – ½ – 30 °C – © – fi", true, 8);
  doc.SetFont(Courier, 16, Regular, NoFontEffect);
  doc.WriteText("Courier: if (a[0] != '\\') return;", true, 8);
  doc.SetFont(Symbol, 16, Regular, NoFontEffect);
  doc.WriteText("αβγδ ΑΒΓΔ → ∞ ∑ ≤ ≠ ∈", true, 8);
  doc.SetFont(ZapfDingbats, 16, Regular, NoFontEffect);
  doc.WriteText("✓ ✗ ★ ☎ ✂ ❶ ❷ ➔", true, 24);

  doc.SetFont(Times, 16, Regular, NoFontEffect);
  doc.WriteText("What a font lacks is a question mark: 東京", true);
  doc.Flush();
}
