// SPDX-License-Identifier: MIT
//
// Writes jscript.pdf and jscript.ps, and more whose names end in _picture, _conforming and _plain,
// with the calls of reference_document.cpp. JScript has no variables that receive values.

function describe(doc, pdf) {
  doc.Title = "Pages of a script";
  doc.Author = "Zo\u00EB M\u00FCller";
  doc.Creator = "\u0100 \u4E2D \uD83D\uDE00 \u20AC";
  doc.PaperSize = 1;
  doc.Rotated = pdf;
  if (pdf) {
    doc.Keywords = "words";
    doc.Producer = "script";
    if (!doc.Conforming) doc.Subject = undefined;
  }
}

function writeAlignedTexts(doc) {
  for (var alignment = 0; alignment <= 3; ++alignment) {
    for (var effect = 0; effect <= 2; ++effect) {
      doc.SetFont(alignment + 1, 10 + effect, effect + 1, effect);
      doc.SetColor(60 * alignment, 0, 100 * effect);
      doc.WriteText("Alignment " + alignment + ", effect " + effect, true, effect, alignment);
    }
  }
}

function writeTitles(doc, pdf) {
  doc.SetFont(2, 14, 2, 0);
  doc.WriteTitle("Disc");
  doc.WriteTitle("Square, centered", 2, 2);
  if (pdf) {
    doc.WriteTitle("Linked", 0, 1, "https://example.org/title");
    doc.WriteText("A link", true, 4, 3, "https://example.org/text");
  }
}

function writeAtPositions(doc) {
  doc.SetPosition(30, 300);
  doc.SetPosition(-1, 320);
  doc.DrawRectangle(30, 320, 100, 20);
  doc.SetFont(3, 20, 2, 0);
  doc.WriteText("Stra\u00DFe (\u20AC, \u4E2D)", true);
  doc.WriteText("");
  doc.SetThickness("3");
  doc.DrawLine(1.5, 2.5, "100", 40);
}

function drawShapes(doc) {
  doc.NewPage(30, 30, 30, 30, 255, 255, 255);
  var dashes = ["", "3 2", "8 2 1 2", 1];
  for (var row = 0; row <= 3; ++row) {
    var y = 120 * row + 60;
    doc.SetThickness(row + 1);
    doc.SetDash(dashes[row]);
    doc.SetFillStyle(row > 1);
    doc.SetFillColor(255 - 60 * row, 200, 60 * row);
    doc.DrawLine(0, y - 50, 100, y + 50);
    doc.DrawRectangle(110, y - 40, 80, 80);
    doc.DrawCurve(200, y, 230, y - 50, 280, y + 40);
    doc.DrawCircle(330, y, 40);
    doc.DrawEllipse(420, y, 45, 30);
    doc.DrawArc(500, y, 30, 22.5, 300.25 + row);
  }
}

function writeParagraphs(doc) {
  doc.SetColor(0, 0, 128);
  doc.SetFont(2, 12, 3, 0);
  var text = "Words";
  for (var number = 1; number <= 150; ++number) text += " w" + number;
  doc.SetPosition(0, 560);
  doc.WriteMultiText(text, 3, 0, true);
  doc.WriteMultiText(text, 0, 2, false, 300);
}

function writePages(doc, file, pdf) {
  describe(doc, pdf);
  if (!doc.Create(file)) return;
  doc.NewPage(50, 40, 50, 40, 255, 250, 240);
  writeAlignedTexts(doc);
  writeTitles(doc, pdf);
  writeAtPositions(doc);
  drawShapes(doc);
  writeParagraphs(doc);
  if (doc.Conforming) writeForEveryReader(doc, pdf);
  doc.Flush();
}

function writeForEveryReader(doc, pdf) {
  doc.Footer = "{page} of {pages}";
  doc.NewPage(50, 40, 50, 40, 255, 255, 255);
  doc.WriteMultiText(doc.Creator + " a) (b \\\tc");
  var width = doc.TextWidth("Lost");
  var height = doc.TextHeight("Two lines of a narrow paragraph", 2, 100);
  doc.SetPosition(0, 200);
  doc.DrawRectangle(0, 200, width, height);
  doc.DrawPicture("landscape_24.bmp");
  if (pdf) {
    doc.WriteBookmark("Page " + doc.PageNumber);
    doc.SetAnchor("here");
    doc.WriteText(doc.LostCharacters, true, 3, 0, "#here");
    doc.DrawPicture("landscape.jpg", 3, "", 5);
    doc.Subject = doc.LostCharacters;
  } else {
    doc.WriteText(doc.LostCharacters, true, 3);
    doc.DrawPicture("landscape.jpg", 3, 5);
  }
}

function writeConforming(doc, kind) {
  doc.Conforming = true;
  writePages(doc, "jscript_conforming." + kind, kind == "pdf");
  if (kind == "pdf") {
    doc.Compressed = false;
    writePages(doc, "jscript_plain.pdf", true);
  }
}

function writePictures(doc, file, pdf) {
  if (!doc.Create(file)) return;
  doc.NewPage(50, 40, 50, 40, 255, 250, 240);
  doc.DrawPicture("landscape_24.bmp");
  doc.DrawPicture("landscape_4.bmp");
  doc.SetPictureDimensions(60, 200);
  if (pdf) {
    doc.DrawPicture("landscape.gif", 2, "https://example.org/picture", 4);
    doc.DrawPicture("landscape.jpg", 3, "", 2);
  } else {
    doc.DrawPicture("landscape.gif", 2, 4);
    doc.DrawPicture("landscape.jpg", 3, 2);
  }
  doc.Flush();
}

var kinds = ["pdf", "ps"];
for (var i = 0; i < kinds.length; ++i) {
  var doc = new ActiveXObject("Vellumark." + kinds[i]);
  writePages(doc, "jscript." + kinds[i], kinds[i] == "pdf");
  writePictures(doc, "jscript_picture." + kinds[i], kinds[i] == "pdf");
  writeConforming(doc, kinds[i]);
}
WScript.Echo("end of script");
