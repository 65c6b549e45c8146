// SPDX-License-Identifier: MIT
#include "pdf/unicode_map.h"

#include <algorithm>
#include <cstddef>

#include "platform/utf8.h"

namespace vellumark::pdf {
namespace {

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

// The digits of one character in UTF-16.
void AppendUtf16(char32_t character, std::string& digits) {
  const auto append = [&](char32_t unit) {
    const std::string code = HexCode(static_cast<unsigned>(unit), 4);
    digits.append(code, 1, 4);
  };
  if (character < 0x10000) {
    append(character);
  } else {
    append(0xD800 + ((character - 0x10000) >> 10));
    append(0xDC00 + ((character - 0x10000) & 0x3FF));
  }
}

}  // namespace

std::string HexCode(unsigned number, int digits) {
  std::string hex = "<";
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    hex += "0123456789ABCDEF"[number >> shift & 0xFU];
  }
  return hex + '>';
}

std::string UnicodeMapOf(std::string_view first_code, std::string_view last_code,
                         const std::vector<std::string>& ranges,
                         const std::vector<std::string>& singles) {
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n";
  map.append(first_code).append(" ").append(last_code).append("\nendcodespacerange\n");
  AppendBlocks(ranges, "bfrange", map);
  AppendBlocks(singles, "bfchar", map);
  map += "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
  return map;
}

std::string UnicodeMap(std::span<const std::string> texts) {
  std::vector<std::string> lines;
  for (std::size_t code = 0; code < texts.size(); ++code) {
    if (texts[code].empty()) continue;
    std::string line = HexCode(static_cast<unsigned>(code), 4) + " <";
    for (platform::Utf8Reader reader(texts[code]); !reader.AtEnd();) {
      AppendUtf16(reader.Next(), line);
    }
    lines.push_back(line + ">\n");
  }
  return UnicodeMapOf("<0000>", "<FFFF>", {}, lines);
}

}  // namespace vellumark::pdf
