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

// WinAnsi and Extended for each face.
constexpr auto kLatinWidths = [] {
  std::array<std::array<CodeWidths, 2>, kLatinFaces> widths{};
  for (const LatinGlyph& row : kLatinGlyphs) {
    for (std::size_t face = 0; face < widths.size(); ++face) {
      const std::uint16_t width = row.Width(face);
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

}  // namespace

const CodedGlyphs& GlyphsOf(TextEncoding encoding) noexcept { return kGlyphs[Index(encoding)]; }

// The obliques of Helvetica are as wide as its uprights.
std::size_t LatinFaceOf(const Font& font) noexcept {
  const std::uint32_t style = static_cast<std::uint32_t>(font.style) - 1;
  if (style > 3) return kLatinFaces;
  switch (font.number) {
    case FontNumberConstants::Courier: return kCourierFace;
    case FontNumberConstants::Helvetica: return style % 2;
    case FontNumberConstants::Times: return 2 + style;
    default: return kLatinFaces;
  }
}

const CodeWidths& WidthsOf(const Font& font, TextEncoding encoding) noexcept {
  if (const std::size_t face = LatinFaceOf(font); face < kLatinFaces) {
    return encoding <= TextEncoding::Extended ? kLatinWidths[face][Index(encoding)] : kNoWidths;
  }
  if (font.number == FontNumberConstants::Symbol && encoding == TextEncoding::Symbol) {
    return kSymbolWidths;
  }
  if (font.number == FontNumberConstants::ZapfDingbats && encoding == TextEncoding::ZapfDingbats) {
    return kZapfDingbatsWidths;
  }
  return kNoWidths;
}

}  // namespace vellumark::layout
