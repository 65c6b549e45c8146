// SPDX-License-Identifier: MIT
//
// DrawGallery: every drawing and text feature on labeled pages, with the same code for PDF and
// PostScript. The document must have been created on A4 paper.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <vellumark/vellumark.h>

namespace vellumark::examples {

inline constexpr std::int16_t kColumn = 495;  // usable width of an A4 page with margins of 50

inline void Plain(Document& doc, FontNumberConstants font, std::uint8_t height,
                  FontStyleConstants style = FontStyleConstants::Regular) {
  doc.SetFont(font, height, style, FontEffectConstants::NoFontEffect);
}

/// Starts a page with its heading and leaves the position below it.
inline void StartPage(Document& doc, std::string_view heading, std::uint8_t red = 255,
                      std::uint8_t green = 255, std::uint8_t blue = 255) {
  doc.NewPage(50, 50, 50, 50, red, green, blue);
  doc.SetColor(20, 60, 110);
  doc.SetFillColor(20, 60, 110);
  Plain(doc, FontNumberConstants::Helvetica, 18, FontStyleConstants::Bold);
  doc.WriteTitle(heading, AlignmentConstants::NoAlignment, BulletConstants::Square);
  doc.SetThickness(1);
  doc.DrawLine(0, 26, kColumn, 26);
  doc.SetColor(0, 0, 0);
  doc.SetPosition(0, 40);
  Plain(doc, FontNumberConstants::Helvetica, 9);
}

inline void Label(Document& doc, std::int16_t x, std::int16_t y, std::string_view text) {
  doc.SetPosition(x, y);
  Plain(doc, FontNumberConstants::Helvetica, 9);
  doc.WriteText(text);
}

inline void LinesPage(Document& doc) {
  StartPage(doc, "Lines");
  std::int16_t y = 60;
  for (const int thickness : {1, 2, 4, 8, 16}) {
    Label(doc, 0, y, "thickness " + std::to_string(thickness));
    doc.SetThickness(static_cast<std::uint8_t>(thickness));
    doc.DrawLine(120, static_cast<std::int16_t>(y + 8), kColumn, static_cast<std::int16_t>(y + 8));
    y = static_cast<std::int16_t>(y + 30);
  }
  doc.SetThickness(2);
  for (const char* const dash : {"", "3 2", "8 4 2 4", "1 6"}) {
    Label(doc, 0, y, *dash == '\0' ? "solid" : "dash " + std::string(dash));
    doc.SetDash(dash);
    doc.DrawLine(120, static_cast<std::int16_t>(y + 6), kColumn, static_cast<std::int16_t>(y + 6));
    y = static_cast<std::int16_t>(y + 24);
  }
  doc.SetDash("");
  Label(doc, 0, y, "colours");
  for (int i = 0; i < 12; ++i) {
    doc.SetColor(static_cast<std::uint8_t>(i * 23), 80, static_cast<std::uint8_t>(255 - i * 23));
    const auto x = static_cast<std::int16_t>(120 + i * 30);
    doc.DrawLine(x, y, static_cast<std::int16_t>(x + 25), static_cast<std::int16_t>(y + 100));
  }
  doc.SetColor(0, 0, 0);
}

inline void ClosedShapesPage(Document& doc) {
  StartPage(doc, "Rectangles, circles and ellipses");
  doc.SetThickness(2);
  std::int16_t y = 60;
  for (const bool filled : {true, false}) {
    Label(doc, 0, y, filled ? "filled" : "unfilled, on a grey bar");
    if (!filled) {
      doc.SetColor(190, 190, 190);
      doc.SetFillColor(190, 190, 190);
      doc.SetFillStyle(true);
      doc.DrawRectangle(0, static_cast<std::int16_t>(y + 55), kColumn, 20);
    }
    doc.SetColor(120, 20, 20);
    doc.SetFillColor(250, 220, 120);
    doc.SetFillStyle(filled);
    doc.DrawRectangle(20, static_cast<std::int16_t>(y + 25), 110, 80);
    doc.DrawCircle(235, static_cast<std::int16_t>(y + 65), 40);
    doc.DrawEllipse(390, static_cast<std::int16_t>(y + 65), 70, 40);
    doc.SetColor(0, 0, 0);
    y = static_cast<std::int16_t>(y + 140);
  }
  doc.SetFillStyle(false);
  Label(doc, 0, y, "no width, and no radius");
  doc.DrawRectangle(150, y, 0, 40);
  doc.DrawCircle(200, static_cast<std::int16_t>(y + 20), 0);
}

inline void CurvesPage(Document& doc) {
  StartPage(doc, "Curves and slices");
  doc.SetThickness(2);
  doc.SetFillStyle(true);
  doc.SetFillColor(200, 225, 245);
  Label(doc, 0, 60, "curves, pulled by their second point and closed");
  doc.DrawCurve(20, 180, 110, 80, 200, 180);
  doc.DrawCurve(260, 130, 480, 80, 330, 190);
  Label(doc, 0, 210, "slices, angles counter-clockwise from the right");
  struct Slice {
    std::int16_t x;
    float from;
    float to;
    const char* label;
  };
  for (const Slice& slice : {Slice{55, 0, 90, "0 to 90"}, Slice{180, 30, 200, "30 to 200"},
                             Slice{305, 0, 360, "0 to 360"}, Slice{430, 300, 405, "300 to 405"}}) {
    doc.DrawArc(slice.x, 290, 50, slice.from, slice.to);
    Label(doc, static_cast<std::int16_t>(slice.x - 25), 350, slice.label);
  }
  doc.SetFillStyle(false);
}

inline void FontsPage(Document& doc) {
  using enum FontNumberConstants;
  using enum FontStyleConstants;
  StartPage(doc, "The fourteen fonts");
  for (const auto& [font, name] :
       {std::pair(Courier, "Courier"), std::pair(Helvetica, "Helvetica"), std::pair(Times, "Times"),
        std::pair(FontNumberConstants::Symbol, "Symbol"),
        std::pair(ZapfDingbats, "ZapfDingbats")}) {
    for (const FontStyleConstants style : {Regular, Bold, Italic, BoldItalic}) {
      if (font >= FontNumberConstants::Symbol && style != Regular) continue;
      Plain(doc, Helvetica, 8);
      doc.WriteText(name, true, 2);
      Plain(doc, font, 16, style);
      doc.WriteText("Sphinx of black quartz, judge my vow 0123456789", true, 8);
    }
  }
  for (const int height : {8, 12, 24, 48}) {
    Plain(doc, Times, static_cast<std::uint8_t>(height));
    doc.WriteText(std::to_string(height) + " ");
  }
}

inline void EffectsPage(Document& doc) {
  StartPage(doc, "Alignment and effects");
  doc.SetPosition(0, 60);
  for (const auto effect : {FontEffectConstants::NoFontEffect, FontEffectConstants::Underline,
                            FontEffectConstants::Strikethrough}) {
    for (const auto& [alignment, name] : {std::pair(AlignmentConstants::LeftAlign, "left"),
                                          std::pair(AlignmentConstants::Center, "centre"),
                                          std::pair(AlignmentConstants::RightAlign, "right")}) {
      doc.SetFont(FontNumberConstants::Times, 14, FontStyleConstants::Regular, effect);
      doc.WriteText(name, true, 6, alignment);
    }
  }
  Plain(doc, FontNumberConstants::Times, 14);
  doc.WriteText("(parentheses) and ");
  doc.SetColor(180, 30, 30);
  doc.WriteText("colour ");
  doc.SetColor(0, 0, 0);
  doc.WriteText("along one line", true, 12);
  for (const auto bullet : {BulletConstants::Disc, BulletConstants::Square}) {
    for (const auto alignment : {AlignmentConstants::NoAlignment, AlignmentConstants::Center,
                                 AlignmentConstants::RightAlign}) {
      doc.WriteTitle("A title behind its bullet", alignment, bullet);
    }
  }
}

inline void ParagraphsPage(Document& doc) {
  constexpr std::string_view kText =
      "Text is measured with the widths of the standard fonts and cut where the next word would "
      "cross the right edge. A justified line ends there to the point: the spare width is handed "
      "out between its words, and what the division leaves over goes to the first gaps. The last "
      "line keeps its natural width.";
  StartPage(doc, "Paragraphs");
  for (const bool justified : {false, true}) {
    Label(doc, 0, justified ? std::int16_t{170} : std::int16_t{50}, "");
    doc.WriteText(justified ? "justified" : "ragged", true, 4);
    Plain(doc, FontNumberConstants::Times, 12);
    doc.WriteMultiText(kText, 2, AlignmentConstants::NoAlignment, justified);
  }
  Label(doc, 0, 290, "a column of 200 points: left, centre, right");
  for (const auto& [alignment, y] :
       {std::pair(AlignmentConstants::LeftAlign, std::int16_t{310}),
        std::pair(AlignmentConstants::Center, std::int16_t{440}),
        std::pair(AlignmentConstants::RightAlign, std::int16_t{570})}) {
    doc.SetPosition(0, y);
    Plain(doc, FontNumberConstants::Helvetica, 10);
    doc.WriteMultiText(kText, 1, alignment, true, 200);
  }
}

inline void PageFlowPages(Document& doc) {
  StartPage(doc, "Over the end of the page", 255, 250, 230);
  doc.SetPosition(0, 650);
  Plain(doc, FontNumberConstants::Times, 12);
  std::string text;
  for (int i = 1; i <= 200; ++i) text += "word " + std::to_string(i) + ", ";
  doc.WriteMultiText(text + "the end, on a page of the same colour and margins.", 2,
                     AlignmentConstants::NoAlignment, true);
}

/// Letters that a conforming document shows and a classic one does not.
inline void LettersPage(Document& doc) {
  StartPage(doc, "Letters beyond ASCII – 315 in each Latin font");
  struct Line {
    std::string_view name;
    std::string_view text;
  };
  doc.SetPosition(0, 50);
  for (const Line& line :
       {Line{"German", "Zwölf Boxkämpfer jagen Viktor quer über den großen Sylter Deich"},
        Line{"French", "Voix ambiguë d’un cœur qui, au zéphyr, préfère les jattes de kiwis"},
        Line{"Spanish", "¿Jovencillo emponzoñado de whisky? ¡Qué figurota exhibe!"},
        Line{"Polish", "Zażółć gęślą jaźń, pójdźże, kiń tę chmurność w głąb flaszy"},
        Line{"Czech", "Příliš žluťoučký kůň úpěl ďábelské ódy"},
        Line{"Hungarian", "Árvíztűrő tükörfúrógép"},
        Line{"Croatian", "Gojazni đačić s biciklom drži hmelj i finu vatu"},
        Line{"Romanian", "Muzicologă în bej vând whisky și tequila, preț fix"},
        Line{"Turkish", "Pijamalı hasta yağız şoföre çabucak güvendi"},
        Line{"Icelandic", "Kæmi ný öxi hér ykist þjófum nú bæði víl og ádrepa"},
        Line{"Latvian", "Glāžšķūņa rūķīši dzērumā čiepj Baha koncertflīģeļu vākus"}}) {
    Plain(doc, FontNumberConstants::Helvetica, 8);
    doc.WriteText(line.name, true, 2);
    Plain(doc, FontNumberConstants::Times, 14);
    doc.WriteText(line.text, true, 8);
  }
  Plain(doc, FontNumberConstants::Helvetica, 14);
  doc.WriteText("“Quotes” ‘single’ „low“ «French» – — … • † ‡ § ¶ © ® ™ € £ ¥ ƒ", true, 8);
  doc.WriteText("½ ¼ ¾ × ÷ ± − ≤ ≥ ≠ ∂ ∑ √ ◊ µ ° ¬ (parentheses) \\backslash", true, 16);
  Plain(doc, FontNumberConstants::Symbol, 14);
  doc.WriteText("αβγδεζηθικλμνξοπρστυφχψω ← → ↔ ⇒ ∀ ∃ ∈ ∞ ∫ ♠ ♥", true, 8);
  Plain(doc, FontNumberConstants::ZapfDingbats, 14);
  doc.WriteText("✓ ✗ ✂ ✈ ✉ ★ ➜ ❶ ❷ ❸", true, 8);
}

/// Links, if the document has them; a PS shows only the text.
template <class AnyDocument>
void LinksPage(AnyDocument& doc) {
  StartPage(doc, "Links");
  Plain(doc, FontNumberConstants::Helvetica, 12);
  doc.SetColor(0, 0, 200);
  constexpr auto kNone = AlignmentConstants::NoAlignment;
  constexpr std::string_view kAddress = "https://example.org/gallery";
  if constexpr (requires { doc.WriteText(kAddress, true, 6, kNone, kAddress); }) {
    doc.WriteText("A linked text", true, 6, kNone, kAddress);
    doc.WriteTitle("A linked title", kNone, BulletConstants::Disc, kAddress);
  } else {
    doc.WriteText("A linked text", true, 6, kNone);
    doc.WriteTitle("A linked title", kNone, BulletConstants::Disc);
  }
  doc.SetColor(0, 0, 0);
}

template <class AnyDocument>
void DrawGallery(AnyDocument& doc) {
  LinesPage(doc);
  ClosedShapesPage(doc);
  CurvesPage(doc);
  FontsPage(doc);
  EffectsPage(doc);
  ParagraphsPage(doc);
  PageFlowPages(doc);
  LinksPage(doc);
  if (doc.Conforming()) LettersPage(doc);
}

}  // namespace vellumark::examples
