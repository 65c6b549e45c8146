// SPDX-License-Identifier: MIT
//
// reference_document FOLDER: writes, with the library of this machine, the documents that
// document.vbs and document.js write through the automation server:
//
//     reference.pdf            reference.ps              texts, shapes, a paragraph
//     reference_picture.pdf    reference_picture.ps      pictures, which lie in FOLDER
//     reference_conforming.pdf, .ps; reference_plain.pdf without compression
//                                                        the first as conforming documents, and
//                                                        more
//
// wine_test.py compares them. The three sources make the same calls in the same order.
#include <cstdint>
#include <string>
#include <type_traits>

#include <vellumark/vellumark.h>

namespace {

using namespace vellumark;
using enum AlignmentConstants;

template <class D>
constexpr bool kIsPdf = std::is_same_v<D, PDF>;

template <class T>
T As(int number) {
  return static_cast<T>(number);
}

template <class D>
void Describe(D& doc) {
  doc.Title("Pages of a script");
  doc.Author("Zo\u00EB M\u00FCller");
  doc.Creator("\u0100 \u4E2D \U0001F600 \u20AC");
  doc.PaperSize(PaperSizeConstants::Letter);
  doc.Rotated(kIsPdf<D>);
  if constexpr (kIsPdf<D>) {
    doc.Keywords("words");
    doc.Producer("script");
    if (!doc.Conforming()) doc.Subject("");
  }
}

void WriteAlignedTexts(Document& doc) {
  for (int alignment = 0; alignment <= 3; ++alignment) {
    for (int effect = 0; effect <= 2; ++effect) {
      doc.SetFont(As<FontNumberConstants>(alignment + 1), As<std::uint8_t>(10 + effect),
                  As<FontStyleConstants>(effect + 1), As<FontEffectConstants>(effect));
      doc.SetColor(As<std::uint8_t>(60 * alignment), 0, As<std::uint8_t>(100 * effect));
      const std::string text =
          "Alignment " + std::to_string(alignment) + ", effect " + std::to_string(effect);
      doc.WriteText(text, true, As<std::uint8_t>(effect), As<AlignmentConstants>(alignment));
    }
  }
}

template <class D>
void WriteTitles(D& doc) {
  doc.SetFont(FontNumberConstants::Helvetica, 14, FontStyleConstants::Bold, {});
  doc.WriteTitle("Disc");
  doc.WriteTitle("Square, centered", Center, BulletConstants::Square);
  if constexpr (kIsPdf<D>) {
    doc.WriteTitle("Linked", NoAlignment, BulletConstants::Disc, "https://example.org/title");
    doc.WriteText("A link", true, 4, RightAlign, "https://example.org/text");
  }
}

void WriteAtPositions(Document& doc) {
  doc.SetPosition(30, 300);
  doc.SetPosition(-1, 320);
  doc.DrawRectangle(30, 320, 100, 20);
  doc.SetFont(FontNumberConstants::Times, 20, FontStyleConstants::Bold, {});
  doc.WriteText("Stra\u00DFe (\u20AC, \u4E2D)", true);
  doc.WriteText("");
  doc.SetThickness(3);
  doc.DrawLine(2, 2, 100, 40);
}

void DrawShapes(Document& doc) {
  doc.NewPage(30, 30, 30, 30, 255, 255, 255);
  const char* const dashes[] = {"", "3 2", "8 2 1 2", "1"};
  for (int row = 0; row <= 3; ++row) {
    const auto y = As<std::int16_t>(120 * row + 60);
    const auto at = [y](int distance) { return As<std::int16_t>(y + distance); };
    doc.SetThickness(As<std::uint8_t>(row + 1));
    doc.SetDash(dashes[row]);
    doc.SetFillStyle(row > 1);
    doc.SetFillColor(As<std::uint8_t>(255 - 60 * row), 200, As<std::uint8_t>(60 * row));
    doc.DrawLine(0, at(-50), 100, at(50));
    doc.DrawRectangle(110, at(-40), 80, 80);
    doc.DrawCurve(200, y, 230, at(-50), 280, at(40));
    doc.DrawCircle(330, y, 40);
    doc.DrawEllipse(420, y, 45, 30);
    doc.DrawArc(500, y, 30, 22.5F, 300.25F + static_cast<float>(row));
  }
}

void WriteParagraphs(Document& doc) {
  doc.SetColor(0, 0, 128);
  doc.SetFont(FontNumberConstants::Helvetica, 12, FontStyleConstants::Italic, {});
  std::string text = "Words";
  for (int number = 1; number <= 150; ++number) text += " w" + std::to_string(number);
  doc.SetPosition(0, 560);
  doc.WriteMultiText(text, 3, NoAlignment, true);
  doc.WriteMultiText(text, 0, Center, false, 300);
}

template <class D>
void WriteForEveryReader(D& doc, const std::string& folder) {
  doc.Footer("{page} of {pages}");
  doc.NewPage(50, 40, 50, 40, 255, 255, 255);
  doc.WriteMultiText(doc.Creator() + " a) (b \\\tc");
  const std::int16_t width = doc.TextWidth("Lost");
  const std::int32_t height = doc.TextHeight("Two lines of a narrow paragraph", 2, 100);
  doc.SetPosition(0, 200);
  doc.DrawRectangle(0, 200, width, As<std::int16_t>(height));
  doc.DrawPicture(folder + "landscape_24.bmp");
  if constexpr (kIsPdf<D>) {
    doc.WriteBookmark("Page " + std::to_string(doc.PageNumber()));
    doc.SetAnchor("here");
    doc.WriteText(doc.LostCharacters(), true, 3, NoAlignment, "#here");
    doc.DrawPicture(folder + "landscape.jpg", RightAlign, "", EncodingConstants::Original);
    doc.Subject(doc.LostCharacters());
  } else {
    doc.WriteText(doc.LostCharacters(), true, 3);
    doc.DrawPicture(folder + "landscape.jpg", RightAlign, EncodingConstants::Original);
  }
}

template <class D>
bool WritePages(D& doc, const std::string& folder, const std::string& file) {
  Describe(doc);
  if (!doc.Create(folder + file)) return false;
  doc.NewPage(50, 40, 50, 40, 255, 250, 240);
  WriteAlignedTexts(doc);
  WriteTitles(doc);
  WriteAtPositions(doc);
  DrawShapes(doc);
  WriteParagraphs(doc);
  if (doc.Conforming()) WriteForEveryReader(doc, folder);
  doc.Flush();
  return doc.LastRefusal().reason == RefusalReason::None;
}

template <class D>
bool WritePictures(D& doc, const std::string& folder, const std::string& file) {
  if (!doc.Create(folder + file)) return false;
  doc.NewPage(50, 40, 50, 40, 255, 250, 240);
  bool drawn = doc.DrawPicture(folder + "landscape_24.bmp");
  drawn = doc.DrawPicture(folder + "landscape_4.bmp") && drawn;
  doc.SetPictureDimensions(60, 200);
  if constexpr (kIsPdf<D>) {
    drawn = doc.DrawPicture(folder + "landscape.gif", Center, "https://example.org/picture",
                            EncodingConstants::Flate) &&
            drawn;
    drawn =
        doc.DrawPicture(folder + "landscape.jpg", RightAlign, "", EncodingConstants::ASCIIHex) &&
        drawn;
  } else {
    drawn = doc.DrawPicture(folder + "landscape.gif", Center, EncodingConstants::Flate) && drawn;
    drawn =
        doc.DrawPicture(folder + "landscape.jpg", RightAlign, EncodingConstants::ASCIIHex) && drawn;
  }
  doc.Flush();
  return drawn && doc.LastRefusal().reason == RefusalReason::None;
}

template <class D>
bool WriteConforming(D& doc, const std::string& folder, const std::string& extension) {
  doc.Conforming(true);
  if (!WritePages(doc, folder, "reference_conforming" + extension)) return false;
  if constexpr (kIsPdf<D>) {
    doc.Compressed(false);
    return WritePages(doc, folder, "reference_plain.pdf");
  }
  return true;
}

template <class D>
bool WriteAll(const std::string& folder, const std::string& extension) {
  D doc;
  return WritePages(doc, folder, "reference" + extension) &&
         WritePictures(doc, folder, "reference_picture" + extension) &&
         WriteConforming(doc, folder, extension);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string folder = std::string(argv[1]) + "/";
  return WriteAll<PDF>(folder, ".pdf") && WriteAll<PS>(folder, ".ps") ? 0 : 1;
}
