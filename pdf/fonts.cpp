// SPDX-License-Identifier: MIT
//
// The fourteen standard fonts. A classic document has all of them; a conforming one those that it
// uses, under at most two encodings each (pdf/font_encoding.h):
//
//     6 0 obj                                     10 0 obj
//     <<                                          <<
//     /Type /Font                                 /Type /Font
//     /Subtype /Type1                             /Subtype /Type1
//     /BaseFont /Helvetica                        /BaseFont /Helvetica
//     /Encoding /WinAnsiEncoding                  /Encoding 8 0 R         its /Differences
//     /FirstChar 32 /LastChar 126                 /ToUnicode 9 0 R
//     /Widths [ ... ]                             /FirstChar 1 /LastChar 255 /Widths [ ... ]
//     /FontDescriptor 7 0 R                       /FontDescriptor 11 0 R
//     >>                                          >>
//     endobj                                      endobj
#include <array>

#include "document/font_resource.h"
#include "layout/font.h"
#include "pdf/content_stream.h"
#include "pdf/decimal.h"
#include "pdf/font_descriptor.h"
#include "pdf/font_encoding.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

constexpr std::size_t kFonts = layout::kFontNames.size();
constexpr std::size_t kFaces = 4;

/// Readers' own Courier has the same width everywhere, and Symbol and ZapfDingbats are the same
/// ones everywhere.
bool NeedsWidths(std::size_t font) { return font >= kFaces && font < 3 * kFaces; }

}  // namespace

void PdfWriter::WriteClassicFonts() {
  objects_.fonts.clear();
  for (const std::string_view name : layout::kFontNames) {
    const auto index = objects_.fonts.size();
    objects_.fonts.push_back(BeginObject());
    lines_.Append("<<");
    lines_.Append("/Type /Font");
    lines_.Append("/Subtype /Type1");
    lines_.Append("/BaseFont /", name);
    lines_.Append("/BaseEncoding /WinAnsiEncoding");
    lines_.Append("/Name /F", index);
    lines_.Append(">>");
    lines_.Append("endobj");
  }
}

/// Returns what the resources name: "/F4 7 0 R /F18 9 0 R ".
std::string PdfWriter::WriteUsedFonts() {
  constexpr auto kWinAnsi = layout::TextEncoding::WinAnsi;
  std::string named;
  std::array<int, 4> encodings{};  // the object of each, once it is written
  for (std::size_t resource = 0; resource < document::kFontResources; ++resource) {
    if (!objects_.fonts_used[resource]) continue;
    const std::size_t font = resource % kFonts;
    const std::string_view name = layout::kFontNames[font];
    const layout::TextEncoding encoding = document::EncodingOf(resource);
    int& object = encodings[static_cast<std::size_t>(encoding)];
    if (encoding != kWinAnsi && object == 0) object = WriteEncoding(encoding);
    const int number = BeginObject();
    lines_.Append("<<");
    lines_.Append("/Type /Font");
    lines_.Append("/Subtype /Type1");
    lines_.Append("/BaseFont /", name);
    if (encoding == kWinAnsi) {
      lines_.Append("/Encoding /WinAnsiEncoding");
    } else {
      lines_.Append("/Encoding ", Reference{object});
      lines_.Append("/ToUnicode ", Reference{object + 1});
    }
    if (NeedsWidths(font)) WriteWidths(static_cast<int>(font), encoding, number + 1);
    lines_.Append(">>");
    lines_.Append("endobj");
    if (NeedsWidths(font)) WriteDescriptor(static_cast<int>(font));
    named.append("/F").append(std::to_string(resource)).append(" ");
    named.append(std::to_string(number)).append(" 0 R ");
  }
  WriteEmbeddedFonts(named);
  return named;
}

/// The widths in the dictionary of a face of Helvetica or Times. Under WinAnsi most documents have
/// no codes beyond ASCII.
void PdfWriter::WriteWidths(int font, layout::TextEncoding encoding, int descriptor) {
  constexpr int kFacesOfFamily = static_cast<int>(kFaces);
  const layout::Font face = {.number = static_cast<FontNumberConstants>(font / kFacesOfFamily + 1),
                             .style = static_cast<FontStyleConstants>(font % kFacesOfFamily + 1)};
  const bool extended = encoding == layout::TextEncoding::Extended;
  const int first = extended ? 1 : ' ';
  const int last = extended || objects_.codes_beyond_ascii ? 255 : '~';
  lines_.Append("/FirstChar ", first);
  lines_.Append("/LastChar ", last);
  lines_.Append("/Widths ", WidthsArray(layout::WidthsOf(face, encoding), first, last));
  lines_.Append("/FontDescriptor ", Reference{descriptor});
}

void PdfWriter::WriteDescriptor(int font) {
  const FontDescriptor& descriptor = DescriptorOf(font);
  const auto [left, bottom, right, top] = descriptor.box;
  BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /FontDescriptor");
  lines_.Append("/FontName /", layout::kFontNames[static_cast<std::size_t>(font)]);
  lines_.Append("/Flags ", descriptor.flags);
  lines_.Append("/FontBBox [ ", left, ' ', bottom, ' ', right, ' ', top, " ]");
  lines_.Append("/ItalicAngle ", Decimal{descriptor.italic_angle});
  lines_.Append("/Ascent ", descriptor.ascent);
  lines_.Append("/Descent ", descriptor.descent);
  lines_.Append("/CapHeight ", descriptor.cap_height);
  lines_.Append("/StemV ", descriptor.stem);
  lines_.Append(">>");
  lines_.Append("endobj");
}

/// An encoding, and behind it the characters that its codes are. Returns the first's number.
int PdfWriter::WriteEncoding(layout::TextEncoding encoding) {
  const int number = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /Encoding");
  if (encoding == layout::TextEncoding::Extended) lines_.Append("/BaseEncoding /WinAnsiEncoding");
  lines_.Append("/Differences ", DifferencesOf(encoding));
  lines_.Append(">>");
  lines_.Append("endobj");
  WriteStream(ToUnicodeMap(encoding));
  return number;
}

}  // namespace vellumark::pdf
