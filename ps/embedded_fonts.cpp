// SPDX-License-Identifier: MIT
#include "ps/embedded_fonts.h"

#include <algorithm>
#include <array>
#include <vector>

#include "encoding/text_lines.h"
#include "ps/type42.h"

namespace vellumark::ps {
namespace {

using document::GlyphUse;

bool IsTrueType(const GlyphUse::Font& font) {
  return font.face->Facts().outlines == layout::Outlines::TrueType;
}

std::string_view KindOf(const GlyphUse::Font& font) {
  return IsTrueType(font) ? "CIDFont " : "FontSet ";
}

/// A string of PostScript, in lines.
std::string Ascii85String(std::span<const std::uint8_t> bytes) {
  std::string text = "<~";
  return text.append(encoding::EncodeAscii85Lines(bytes, "\n")).append("\n");
}

std::string TrueTypeFont(const GlyphUse::Font& font, const std::string& name) {
  const layout::FontProgram program = font.face->Subset(font.glyphs, name);
  const std::array<int, 4>& box = font.face->Facts().box;
  std::string text = "/CIDInit/ProcSet findresource begin\n20 dict begin\n/CIDFontName/";
  text.append(name).append(
      " def\n/CIDFontType 2 def\n/FontType 42 def\n/PaintType 0 def\n"
      "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>def\n"
      "/FontMatrix[1 0 0 1 0 0]def\n/FontBBox[");
  for (const int side : box) text.append(std::to_string(side)).append(" 1000 div ");
  text.append("]def\n/Encoding 256 array def\n0 1 255{Encoding exch/.notdef put}for\n");
  text.append("/CharStrings<</.notdef 0>>def\n/CIDCount ");
  text.append(std::to_string(font.glyphs.size())).append(" def\n/GDBytes 2 def\n/CIDMap[\n");
  const std::vector<std::uint8_t> numbers = document::GlyphNumbers(program);
  constexpr std::size_t kLongest = 65534;  // a string has less than 64 KiB
  for (std::size_t at = 0; at < numbers.size(); at += kLongest) {
    const std::size_t size = std::min(kLongest, numbers.size() - at);
    text.append(Ascii85String(std::span(numbers).subspan(at, size)));
  }
  text.append("]def\n/sfnts[\n");
  for (const std::span<const std::uint8_t> piece : SfntStrings(program.bytes)) {
    // Interpreters leave out the last byte of a string of odd length.
    std::vector<std::uint8_t> bytes(piece.begin(), piece.end());
    bytes.push_back(0);
    if (bytes.size() % 2 == 0) bytes.push_back(0);
    text.append(Ascii85String(bytes));
  }
  return text.append("]def\nCIDFontName currentdict end/CIDFont defineresource pop\nend\n");
}

std::string CffFont(const GlyphUse::Font& font, const std::string& name) {
  const layout::FontProgram program = font.face->Subset(font.glyphs, name);
  std::string set = "/FontSetInit/ProcSet findresource begin/";
  set.append(name).append(" ").append(std::to_string(program.bytes.size())).append(" StartData ");
  set.append(program.bytes.begin(), program.bytes.end());
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(set.data()), set.size());
  std::string text = "currentfile/ASCII85Decode filter cvx exec\n";
  return text.append(encoding::EncodeAscii85Lines(bytes, "\n")).append("\n");
}

}  // namespace

std::string SuppliedResources(std::span<GlyphUse::Font* const> fonts) {
  std::string comments;
  for (const GlyphUse::Font* const font : fonts) {
    comments.append(comments.empty() ? "%%DocumentSuppliedResources: " : "%%+ ");
    comments.append(KindOf(*font)).append(document::EmbeddedName(*font)).append("\n");
  }
  return comments;
}

std::string EmbeddedFonts(std::span<GlyphUse::Font* const> fonts) {
  std::string text;
  if (fonts.empty()) return text;
  text = "/K{{dup type/stringtype eq{show}{0 rmoveto}ifelse}forall}bd\n";
  for (const GlyphUse::Font* const font : fonts) {
    const std::string name = document::EmbeddedName(*font);
    std::string own(1, 'F');
    own.append(std::to_string(font->number));
    text.append("%%BeginResource: ").append(KindOf(*font)).append(name).append("\n");
    text.append(IsTrueType(*font) ? TrueTypeFont(*font, name) : CffFont(*font, name));
    text.append("%%EndResource\n/").append(own).append("/Vellumark-").append(own);
    text.append("/Identity-H[/").append(name).append("/CIDFont findresource]composefont def\n");
  }
  return text;
}

}  // namespace vellumark::ps
