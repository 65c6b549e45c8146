// SPDX-License-Identifier: MIT
//
// The loaded fonts that a document shows, each with the glyphs that it shows, written at the end
// (PDF Reference, 5.6 and 5.8):
//
//     10 0 obj                                    11 0 obj
//     <<                                          <<
//     /Type /Font                                 /Type /Font
//     /Subtype /Type0                             /Subtype /CIDFontType2     TrueType; 0 for CFF
//     /BaseFont /ABCDEF+Name                      /BaseFont /ABCDEF+Name
//     /Encoding /Identity-H                       /CIDSystemInfo << ... >>
//     /DescendantFonts [ 11 0 R ]                 /W [ 0 [ 600 ... ] ]
//     /ToUnicode 14 0 R                           /CIDToGIDMap 13 0 R        TrueType only
//     >>                                          /FontDescriptor 12 0 R
//     endobj                                      ...
#include <string>

#include "pdf/content_stream.h"
#include "pdf/syntax.h"
#include "pdf/unicode_map.h"
#include "pdf/wrapped_words.h"

namespace vellumark::pdf {
namespace {

std::string_view View(const std::vector<std::uint8_t>& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

int FlagsOf(const layout::FaceFacts& facts) {
  constexpr int kFixedPitch = 1;
  constexpr int kSymbolic = 4;  // its characters are not those of the standard Latin ones alone
  constexpr int kItalic = 64;
  return kSymbolic | (facts.fixed_pitch ? kFixedPitch : 0) |
         (facts.italic_angle != 0 ? kItalic : 0);
}

}  // namespace

/// Adds to what the resources name: "/F101 7 0 R ".
void PdfWriter::WriteEmbeddedFonts(std::string& named) {
  for (const document::GlyphUse::Font* const font : glyphs_.Used()) {
    const int number = WriteEmbeddedFont(*font);
    named.append("/F").append(std::to_string(font->number)).append(" ");
    named.append(std::to_string(number)).append(" 0 R ");
  }
}

/// Returns the number of the Type 0 font.
int PdfWriter::WriteEmbeddedFont(const document::GlyphUse::Font& font) {
  const layout::FaceFacts& facts = font.face->Facts();
  const std::string name = document::EmbeddedName(font);
  const layout::FontProgram program = font.face->Subset(font.glyphs, name);
  const bool true_type = facts.outlines == layout::Outlines::TrueType;
  const int file = WriteFontProgram(program, facts.outlines);
  const int map = true_type ? WriteStream(View(document::GlyphNumbers(program))) : 0;
  const int texts = WriteStream(UnicodeMap(font.texts));

  const int descriptor = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /FontDescriptor");
  lines_.Append("/FontName /", name);
  lines_.Append("/Flags ", FlagsOf(facts));
  lines_.Append("/FontBBox [ ", facts.box[0], ' ', facts.box[1], ' ', facts.box[2], ' ',
                facts.box[3], " ]");
  lines_.Append("/ItalicAngle ", facts.italic_angle);
  lines_.Append("/Ascent ", facts.ascent);
  lines_.Append("/Descent ", facts.descent);
  lines_.Append("/CapHeight ", facts.cap_height);
  lines_.Append("/StemV ", facts.stem);
  lines_.Append(true_type ? "/FontFile2 " : "/FontFile3 ", Reference{file});
  lines_.Append(">>");
  lines_.Append("endobj");

  const int descendant = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /Font");
  lines_.Append("/Subtype /CIDFontType", true_type ? 2 : 0);
  lines_.Append("/BaseFont /", name);
  lines_.Append("/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>");
  lines_.Append("/FontDescriptor ", Reference{descriptor});
  WrappedWords widths("/W [ 0 [");
  for (const std::int32_t advance : font.advances) widths.Add(std::to_string(advance));
  widths.Add("] ]");
  lines_.Append(widths.Text());
  if (true_type) lines_.Append("/CIDToGIDMap ", Reference{map});
  lines_.Append(">>");
  lines_.Append("endobj");

  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /Font");
  lines_.Append("/Subtype /Type0");
  lines_.Append("/BaseFont /", name);
  lines_.Append("/Encoding /Identity-H");
  lines_.Append("/DescendantFonts [ ", Reference{descendant}, " ]");
  lines_.Append("/ToUnicode ", Reference{texts});
  lines_.Append(">>");
  lines_.Append("endobj");
  return number;
}

int PdfWriter::WriteFontProgram(const layout::FontProgram& program, layout::Outlines outlines) {
  const std::string entries = outlines == layout::Outlines::TrueType
                                  ? "/Length1 " + std::to_string(program.bytes.size())
                                  : std::string("/Subtype /CIDFontType0C");
  return WriteStream(View(program.bytes), kLevelOfFonts, entries);
}

}  // namespace vellumark::pdf
