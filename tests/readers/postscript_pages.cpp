// SPDX-License-Identifier: MIT
//
// postscript_pages FOLDER: the conforming documents that postscript_test.py gives to interpreters.
//
//     hostile_N.ps             texts, properties and dashes that try to be more than that
//     pages.ps                 five pages, each with a pen and fonts of its own
//     glyphs.ps                every character of every font
//     turned_LR.ps, .pdf       landscape if L is 1, rotated if R is 1; the PDF is not rotated
//     classic.ps, conforming.ps
//                              the same in both outputs, with nothing in it that is an oddity
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <vellumark/vellumark.h>

#include "layout/text_encoding.h"

using namespace vellumark;

namespace {

constexpr auto kRegular = FontStyleConstants::Regular;
constexpr auto kNoEffect = FontEffectConstants::NoFontEffect;
constexpr auto kNoAlignment = AlignmentConstants::NoAlignment;

void Page(Document& doc) { doc.NewPage(40, 40, 40, 40, 255, 255, 255); }

bool Written(Document& doc) {
  doc.Flush();
  return doc.LastRefusal().reason == RefusalReason::None;
}

std::string Utf8(char16_t character) {
  if (character < 0x80) return {static_cast<char>(character)};
  if (character < 0x800) {
    return {static_cast<char>(0xC0 | character >> 6), static_cast<char>(0x80 | (character & 0x3F))};
  }
  return {static_cast<char>(0xE0 | character >> 12),
          static_cast<char>(0x80 | (character >> 6 & 0x3F)),
          static_cast<char>(0x80 | (character & 0x3F))};
}

/// Every byte, alone and as a character, and pieces of the language put together at random.
std::vector<std::string> HostileTexts() {
  std::vector<std::string> texts;
  for (int byte = 0; byte < 256; ++byte) {
    texts.push_back(std::string("a") + static_cast<char>(byte) + "b");
    texts.push_back(Utf8(static_cast<char16_t>(byte)) + Utf8(static_cast<char16_t>(byte)));
  }
  const std::vector<std::string> pieces = {"(",
                                           ")",
                                           "\\",
                                           "\n",
                                           "\r",
                                           "\r\n",
                                           std::string(1, '\0'),
                                           "%",
                                           "%%EOF",
                                           "%%Page: 1 1",
                                           "\n%%Trailer\n",
                                           ") show quit (",
                                           "}J quit{",
                                           "]D quit[",
                                           "\\)",
                                           "\\\\",
                                           "\\015",
                                           "<",
                                           ">",
                                           "~>",
                                           "<<",
                                           "restore",
                                           "(atend)",
                                           "\x04",
                                           "\x1B",
                                           "\xFF",
                                           "é",
                                           "ě",
                                           "€",
                                           "∑",
                                           "я",
                                           "%!PS",
                                           "x y z",
                                           std::string(190, '%'),
                                           std::string(70, '(') + "\n",
                                           "//",
                                           "{",
                                           "[",
                                           "1 0 div"};
  std::uint32_t state = 20261115;
  const auto random = [&state] {
    state = state * 1664525U + 1013904223U;
    return state >> 16U;
  };
  for (int i = 0; i < 300; ++i) {
    std::string text;
    for (auto count = 1 + random() % 6; count > 0; --count)
      text += pieces[random() % pieces.size()];
    texts.push_back(text);
  }
  return texts;
}

bool WriteHostile(const std::string& folder) {
  const std::vector<std::string> texts = HostileTexts();
  constexpr std::size_t kTexts = 8;  // of a document
  for (std::size_t first = 0; first < texts.size(); first += kTexts) {
    PS doc;
    doc.Conforming(true);
    doc.Title(texts[first]);
    doc.Author(texts[(first + 1) % texts.size()]);
    doc.Creator(texts[(first + 2) % texts.size()]);
    if (!doc.Create(folder + "/hostile_" + std::to_string(first / kTexts) + ".ps")) return false;
    for (std::size_t i = first; i < std::min(first + kTexts, texts.size()); ++i) {
      const std::string& text = texts[i];
      if (i % 4 == 0) Page(doc);
      doc.Header(i % 8 == 0 ? text : text + "{page}{{}");
      doc.Footer("{pages}" + text);
      doc.SetFont(static_cast<FontNumberConstants>(1 + i % 5), 8, kRegular,
                  FontEffectConstants::Underline);
      doc.SetDash(text);
      doc.DrawLine(0, 0, 99, 99);
      doc.WriteText(text, true, 0, kNoAlignment);
      doc.WriteTitle(text, kNoAlignment, BulletConstants::Disc);
      std::string thrice = text;
      thrice.append(" ").append(text).append(" and so on ").append(text);
      doc.WriteMultiText(thrice, 0, kNoAlignment, true, 120);
      doc.DrawPicture(text);
    }
    const bool written = Written(doc);
    if (!written && doc.LastRefusal().reason != RefusalReason::RunningHeadTooWide) return false;
  }
  return true;
}

bool WritePages(const std::string& folder) {
  PS doc;
  doc.Conforming(true);
  if (!doc.Create(folder + "/pages.ps")) return false;
  for (std::int16_t page = 1; page <= 5; ++page) {
    const auto shade = static_cast<std::uint8_t>(40 * page);
    doc.NewPage(40, 40, 40, 40, 255, 255, page == 3 ? 200 : 255);
    doc.SetFont(static_cast<FontNumberConstants>(1 + page % 3), 18, kRegular, kNoEffect);
    doc.WriteText("Strana " + std::to_string(page) + ", řádek č. 1: Größe", true);
    if (page % 2 == 0) continue;  // what is in force on one page is not on the next
    doc.SetThickness(static_cast<std::uint8_t>(page));
    doc.SetColor(shade, 0, 0);
    doc.SetDash(page == 3 ? "6 2" : "");
    doc.SetFillStyle(true);
    doc.SetFillColor(0, shade, 255);
    for (std::int16_t i = 0; i < page; ++i)
      doc.DrawRectangle(static_cast<std::int16_t>(60 * i), 60, 50, 40);
  }
  return Written(doc);
}

bool WriteGlyphs(const std::string& folder) {
  PS doc;
  doc.Conforming(true);
  if (!doc.Create(folder + "/glyphs.ps")) return false;
  for (std::int32_t number = 1; number <= 5; ++number) {
    using enum layout::TextEncoding;
    const auto first = number <= 3 ? WinAnsi : number == 4 ? Symbol : ZapfDingbats;
    const auto last = number <= 3 ? Extended : first;
    for (std::int32_t style = 1; style <= 4; ++style) {
      Page(doc);
      doc.SetFont(static_cast<FontNumberConstants>(number), 8,
                  static_cast<FontStyleConstants>(style), kNoEffect);
      for (const auto encoding : {first, last}) {
        std::string text;
        for (const layout::CodedGlyph& glyph : layout::GlyphsOf(encoding)) {
          if (glyph.character != 0) text += Utf8(glyph.character) + ' ';
        }
        if (!doc.WriteMultiText(text, 0, kNoAlignment, false)) return false;
      }
    }
  }
  return doc.LostCharacters().empty() && Written(doc);
}

/// What turns with the page: text, a rectangle in one corner, lines.
void DrawContent(Document& doc) {
  for (int page = 0; page < 2; ++page) {
    doc.NewPage(30, 30, 30, 30, 255, page == 0 ? 255 : 230, 255);
    doc.SetFont(FontNumberConstants::Helvetica, 24, kRegular, kNoEffect);
    doc.WriteText("This way up", true);
    doc.SetFillStyle(true);
    doc.SetFillColor(0, 0, 255);
    doc.DrawRectangle(400, 0, 100, 60);
    doc.DrawLine(0, 100, 300, 100);
  }
}

bool WriteTurned(const std::string& folder) {
  for (const bool landscape : {false, true}) {
    for (const bool rotated : {false, true}) {
      const std::string name =
          folder + "/turned_" + (landscape ? '1' : '0') + (rotated ? '1' : '0');
      PS ps;
      PDF pdf;
      for (Document* const doc : {static_cast<Document*>(&ps), static_cast<Document*>(&pdf)}) {
        doc->Conforming(true);
        if (landscape) doc->Orientation(OrientationConstants::Landscape);
      }
      ps.Rotated(rotated);
      if (!ps.Create(name + ".ps") || !pdf.Create(name + ".pdf")) return false;
      DrawContent(ps);
      DrawContent(pdf);
      if (!Written(ps) || !Written(pdf)) return false;
    }
  }
  return true;
}

bool WriteAlike(const std::string& file, bool conforming) {
  PS doc;
  doc.Conforming(conforming);
  if (!doc.Create(file)) return false;
  Page(doc);
  for (std::int32_t number = 1; number <= 3; ++number) {
    doc.SetFont(static_cast<FontNumberConstants>(number), static_cast<std::uint8_t>(9 + number),
                static_cast<FontStyleConstants>(number), FontEffectConstants::Underline);
    doc.SetColor(static_cast<std::uint8_t>(60 * number), 0, 0);
    doc.WriteText("Plain text, 0123456789 - the same in both.", true, 3);
  }
  doc.SetFont(FontNumberConstants::Times, 11, kRegular, kNoEffect);
  std::string text;
  for (int i = 0; i < 20; ++i) text += "words that are wrapped ";
  doc.WriteMultiText(text + "to the end.", 1, kNoAlignment, false, 300);
  doc.SetFillStyle(true);
  doc.SetFillColor(0, 200, 0);
  for (std::int16_t i = 0; i < 4; ++i) {
    const auto along = [i](int step) { return static_cast<std::int16_t>(step * i); };
    doc.SetThickness(static_cast<std::uint8_t>(1 + i));
    doc.DrawRectangle(along(70), 300, 50, 30);
    doc.DrawLine(along(70), 350, static_cast<std::int16_t>(along(70) + 50), 380);
    constexpr const char* kDepths[] = {"1", "4", "8", "24"};
    doc.SetPosition(along(110), 400);
    const std::string picture = std::string(VELLUMARK_PICTURES "/landscape_") + kDepths[i] + ".bmp";
    if (!doc.DrawPicture(picture, kNoAlignment, EncodingConstants::ASCIIHex)) return false;
  }
  return Written(doc);
}

}  // namespace

int main(int, char** argv) {
  const std::string folder = argv[1];
  const bool done = WriteHostile(folder) && WritePages(folder) && WriteGlyphs(folder) &&
                    WriteTurned(folder) && WriteAlike(folder + "/classic.ps", false) &&
                    WriteAlike(folder + "/conforming.ps", true);
  return done ? 0 : 1;
}
