// SPDX-License-Identifier: MIT
#include "pdf/font_encoding.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace vellumark::pdf {
namespace {

using layout::CodedGlyphs;
using layout::TextEncoding;

constexpr std::size_t kLongestLine = 80;
constexpr std::size_t kCodes = 256;

std::string Hex(unsigned number, int digits) {
  std::string hex = "<";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    hex += "0123456789ABCDEF"[number >> shift & 0xFU];
  }
  return hex + '>';
}

// Words with blanks between them, in lines.
class WrappedWords {
 public:
  explicit WrappedWords(std::string_view first) : text_(first), line_(first.size()) {}

  void Add(std::string_view word) {
    const bool wrap = line_ + 1 + word.size() > kLongestLine;
    text_ += wrap ? '\n' : ' ';
    line_ = wrap ? word.size() : line_ + 1 + word.size();
    text_ += word;
  }

  [[nodiscard]] std::string Text() const { return text_; }

 private:
  std::string text_;
  std::size_t line_;
};

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
      lines.singles.push_back(Hex(first, 2) + ' ' + Hex(character, 4) + '\n');
    } else {
      lines.ranges.push_back(Hex(first, 2) + ' ' + Hex(last, 2) + ' ' + Hex(character, 4) + '\n');
    }
    first = last;
  }
  return lines;
}

// The lines in blocks of at most 100, as many as one operator takes.
void AppendBlocks(const std::vector<std::string>& lines, std::string_view kind, std::string& map) {
  constexpr std::size_t kLargestBlock = 100;
  for (std::size_t start = 0; start < lines.size(); start += kLargestBlock) {
    const std::size_t end = std::min(start + kLargestBlock, lines.size());
    map.append(std::to_string(end - start)).append(" begin").append(kind).append("\n");
    for (std::size_t i = start; i < end; ++i) map += lines[i];
    map.append("end").append(kind).append("\n");
  }
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
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<00> <FF>\nendcodespacerange\n";
  const MapLines lines = LinesOf(layout::GlyphsOf(encoding));
  AppendBlocks(lines.ranges, "bfrange", map);
  AppendBlocks(lines.singles, "bfchar", map);
  map += "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
  return map;
}

}  // namespace vellumark::pdf
