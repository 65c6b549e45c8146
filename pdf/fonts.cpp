// SPDX-License-Identifier: MIT
//
// The fourteen standard fonts. A classic document has all of them; a conforming one those that it
// uses, under at most two encodings each (pdf/font_encoding.h):
//
//     6 0 obj                                     9 0 obj
//     <<                                          <<
//     /Type /Font                                 /Type /Font
//     /Subtype /Type1                             /Subtype /Type1
//     /BaseFont /Helvetica                        /BaseFont /Helvetica
//     /Encoding /WinAnsiEncoding                  /Encoding 7 0 R         its /Differences
//     >>                                          /ToUnicode 8 0 R
//     endobj                                      >>
//                                                 endobj
#include <array>

#include "document/font_resource.h"
#include "layout/font.h"
#include "pdf/content_stream.h"
#include "pdf/font_encoding.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

constexpr std::size_t kFonts = layout::kFontNames.size();

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
    const std::string_view name = layout::kFontNames[resource % kFonts];
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
    lines_.Append(">>");
    lines_.Append("endobj");
    named.append("/F").append(std::to_string(resource)).append(" ");
    named.append(std::to_string(number)).append(" 0 R ");
  }
  return named;
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
