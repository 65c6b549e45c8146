// SPDX-License-Identifier: MIT
#include "tools/markdown_blocks.h"

#include <algorithm>

#include "tools/block_parser.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {

Place Block::PlaceOf(std::size_t offset) const {
  const auto behind = std::upper_bound(
      origins.begin(), origins.end(), offset,
      [](std::size_t value, const Origin& origin) { return value < origin.start; });
  if (behind == origins.begin()) return {};
  const Origin& origin = *std::prev(behind);
  const std::string_view before =
      std::string_view(text).substr(origin.start, offset - origin.start);
  return {origin.place.line, origin.place.column + CountCharacters(before)};
}

std::vector<Block> ParseBlocks(std::string_view text) {
  BlockParser parser;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    parser.Line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return parser.Finish();
}

}  // namespace vellumark::tools
