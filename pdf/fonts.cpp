// SPDX-License-Identifier: MIT
//
// The fourteen standard fonts. A classic document has all of them; a conforming one those that it
// uses, under at most two encodings each (pdf/font_encoding.h):
//
//     7 0 obj                                     9 0 obj
//     <<                                          <<
//     /Type /Font                                 /Type /Font
//     /Subtype /Type1                             /Subtype /Type1
//     /BaseFont /Helvetica                        /BaseFont /Helvetica
//     /Encoding /WinAnsiEncoding                  /Encoding 8 0 R         its /Differences
//     >>                                          /ToUnicode 7 0 R
//     endobj                                      >>
//                                                 endobj
#include <algorithm>

#include "layout/font.h"
#include "pdf/content_stream.h"
#include "pdf/font_encoding.h"
#include "pdf/syntax.h"

namespace vellumark::pdf {
namespace {

constexpr std::size_t kFonts = layout::kFontNames.size();

}  // namespace

/// The number of the current font under `encoding`: of its name "/F4", and in fonts_used.
int PdfWriter::FontResource(layout::TextEncoding encoding) const {
  const int font = layout::FontIndex(state_.font);
  const bool extended = encoding == layout::TextEncoding::Extended;
  return extended ? font + static_cast<int>(kFonts) : font;
}

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
  std::string named;
  const auto& used = objects_.fonts_used;
  const bool any_extended = std::any_of(used.begin() + kFonts, used.end(), [](bool u) { return u; });
  const int extended = any_extended ? WriteExtendedEncoding() : 0;
  for (std::size_t resource = 0; resource < used.size(); ++resource) {
    if (!used[resource]) continue;
    const std::string_view name = layout::kFontNames[resource % kFonts];
    const int number = BeginObject();
    lines_.Append("<<");
    lines_.Append("/Type /Font");
    lines_.Append("/Subtype /Type1");
    lines_.Append("/BaseFont /", name);
    if (resource >= kFonts) {
      lines_.Append("/Encoding ", Reference{extended});
      lines_.Append("/ToUnicode ", Reference{extended + 1});
    } else if (name != "Symbol" && name != "ZapfDingbats") {
      lines_.Append("/Encoding /WinAnsiEncoding");
    }
    lines_.Append(">>");
    lines_.Append("endobj");
    named.append("/F").append(std::to_string(resource)).append(" ");
    named.append(std::to_string(number)).append(" 0 R ");
  }
  return named;
}

/// The second encoding, and behind it the characters that its codes are. Returns the first number.
int PdfWriter::WriteExtendedEncoding() {
  const int encoding = BeginObject();
  lines_.Append("<<");
  lines_.Append("/Type /Encoding");
  lines_.Append("/BaseEncoding /WinAnsiEncoding");
  lines_.Append("/Differences ", ExtendedDifferences());
  lines_.Append(">>");
  lines_.Append("endobj");
  const std::string map = ToUnicodeMap(layout::TextEncoding::Extended);
  BeginObject();
  lines_.Append("<<");
  lines_.Append("/Length ", map.size());
  lines_.Append(">>");
  lines_.Append("stream");
  lines_.Append(map);
  lines_.Append("endstream");
  lines_.Append("endobj");
  return encoding;
}

}  // namespace vellumark::pdf
