// SPDX-License-Identifier: MIT
#include "layout/text_encoding.h"

#include <cstddef>

#include "layout/glyphs/glyph_tables.h"

namespace vellumark::layout {
namespace {

constexpr std::size_t Index(TextEncoding encoding) { return static_cast<std::size_t>(encoding); }

constexpr auto kGlyphs = [] {
  std::array<CodedGlyphs, 4> glyphs{};
  for (const LatinGlyph& row : kLatinGlyphs) {
    const CodedGlyph glyph{row.character, row.name};
    if (row.win_ansi != 0) glyphs[Index(TextEncoding::WinAnsi)][row.win_ansi] = glyph;
    if (row.extended != 0) glyphs[Index(TextEncoding::Extended)][row.extended] = glyph;
  }
  for (const BuiltInGlyph& row : kSymbolGlyphs) {
    glyphs[Index(TextEncoding::Symbol)][row.code] = {row.character, row.name};
  }
  for (const BuiltInGlyph& row : kZapfDingbatsGlyphs) {
    glyphs[Index(TextEncoding::ZapfDingbats)][row.code] = {row.character, row.name};
  }
  return glyphs;
}();

// The six faces of latin.txt, then Courier; WinAnsi and Extended for each.
constexpr std::size_t kCourierFace = 6;
constexpr auto kLatinWidths = [] {
  std::array<std::array<CodeWidths, 2>, 7> widths{};
  for (const LatinGlyph& row : kLatinGlyphs) {
    for (std::size_t face = 0; face < widths.size(); ++face) {
      const std::uint16_t width = face == kCourierFace ? kCourierWidth : row.widths[face];
      if (row.win_ansi != 0) widths[face][0][row.win_ansi] = width;
      if (row.extended != 0) widths[face][1][row.extended] = width;
    }
  }
  return widths;
}();

template <std::size_t kCount>
constexpr CodeWidths BuiltInWidths(const BuiltInGlyph (&rows)[kCount]) {
  CodeWidths widths{};
  for (const BuiltInGlyph& row : rows) widths[row.code] = row.width;
  return widths;
}

constexpr CodeWidths kSymbolWidths = BuiltInWidths(kSymbolGlyphs);
constexpr CodeWidths kZapfDingbatsWidths = BuiltInWidths(kZapfDingbatsGlyphs);
constexpr CodeWidths kNoWidths{};

// The row of kLatinWidths; `style` counts from 0, and the obliques of Helvetica are its uprights.
std::size_t FaceOf(FontNumberConstants family, std::uint32_t style) noexcept {
  switch (family) {
    case FontNumberConstants::Helvetica: return style % 2;
    case FontNumberConstants::Times: return 2 + style;
    default: return kCourierFace;
  }
}

}  // namespace

const CodedGlyphs& GlyphsOf(TextEncoding encoding) noexcept { return kGlyphs[Index(encoding)]; }

const CodeWidths& WidthsOf(const Font& font, TextEncoding encoding) noexcept {
  switch (font.number) {
    case FontNumberConstants::Courier:
    case FontNumberConstants::Helvetica:
    case FontNumberConstants::Times: break;
    case FontNumberConstants::Symbol:
      return encoding == TextEncoding::Symbol ? kSymbolWidths : kNoWidths;
    case FontNumberConstants::ZapfDingbats:
      return encoding == TextEncoding::ZapfDingbats ? kZapfDingbatsWidths : kNoWidths;
    default: return kNoWidths;
  }
  const std::uint32_t style = static_cast<std::uint32_t>(font.style) - 1;
  if (style > 3 || encoding > TextEncoding::Extended) return kNoWidths;
  return kLatinWidths[FaceOf(font.number, style)][Index(encoding)];
}

}  // namespace vellumark::layout
