// SPDX-License-Identifier: MIT
#include "pdf/font_encoding.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "pdf/unicode_map.h"
#include "pdf/wrapped_words.h"

namespace vellumark::pdf {
namespace {

using layout::CodedGlyphs;
using layout::TextEncoding;

constexpr std::size_t kCodes = 256;

// The lines of a CMap: single codes, and ranges of codes for consecutive characters. Of a range
// only the last byte of the character counts up.
struct MapLines {
  std::vector<std::string> singles;
  std::vector<std::string> ranges;
};

MapLines LinesOf(const CodedGlyphs& glyphs) {
  MapLines lines;
  for (unsigned first = 0; first < kCodes; ++first) {
    const char16_t character = glyphs[first].character;
    if (character == 0) continue;
    unsigned last = first;
    while (last + 1 < kCodes && glyphs[last + 1].character == glyphs[last].character + 1 &&
           glyphs[last + 1].character % 256 != 0) {
      ++last;
    }
    if (last == first) {
      lines.singles.push_back(HexCode(first, 2) + ' ' + HexCode(character, 4) + '\n');
    } else {
      lines.ranges.push_back(HexCode(first, 2) + ' ' + HexCode(last, 2) + ' ' +
                             HexCode(character, 4) + '\n');
    }
    first = last;
  }
  return lines;
}

}  // namespace

std::string DifferencesOf(TextEncoding encoding) {
  const CodedGlyphs& glyphs = layout::GlyphsOf(encoding);
  const CodedGlyphs& win_ansi = layout::GlyphsOf(TextEncoding::WinAnsi);
  const bool built_in = encoding > TextEncoding::Extended;
  WrappedWords words("[");
  std::size_t next = 0;
  for (std::size_t code = 0; code < kCodes; ++code) {
    const std::string_view name = glyphs[code].name;
    const bool known = built_in ? code < 128 || code > 160 : name == win_ansi[code].name;
    if (name.empty() || known) continue;
    if (code != next) words.Add(std::to_string(code));
    words.Add(std::string("/").append(name));
    next = code + 1;
  }
  words.Add("]");
  return words.Text();
}

std::string ToUnicodeMap(TextEncoding encoding) {
  const MapLines lines = LinesOf(layout::GlyphsOf(encoding));
  return UnicodeMapOf("<00>", "<FF>", lines.ranges, lines.singles);
}

}  // namespace vellumark::pdf
