// SPDX-License-Identifier: MIT
//
// What a single line of light Markdown can be on its own, before its surroundings are known.
//
// All of them take a line without its indent and without trailing blanks.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellumark::tools {

/// "## Text ##": the level, and where the text stands in the line.
struct TitleLine {
  int level = 1;
  std::size_t start = 0;
  std::string_view text;
};
[[nodiscard]] std::optional<TitleLine> AsTitle(std::string_view line);

/// "```" or "~~~", at least three of them. An opening one may have words behind it.
struct FenceLine {
  char mark = '`';
  std::size_t length = 3;
  bool bare = true;  ///< nothing behind it: may close
};
[[nodiscard]] std::optional<FenceLine> AsFence(std::string_view line);

/// "- text" or "12. text".
struct MarkerLine {
  std::string_view marker;  ///< "-", "*", "+", "12." or "12)"
  std::size_t content = 0;  ///< where the text starts; behind the marker if there is none
  [[nodiscard]] bool ordered() const { return marker.size() > 1; }
};
[[nodiscard]] std::optional<MarkerLine> AsMarker(std::string_view line);

/// Three or more of "-", "*" or "_", with or without blanks between them.
[[nodiscard]] bool IsRule(std::string_view line);

/// The level of the title whose underline this is: "===" 1, "---" 2, anything else 0.
[[nodiscard]] int UnderlineLevel(std::string_view line);

/// The line with its tabs replaced by the blanks up to the next column that four divides; form
/// feeds and other breaking controls become blanks.
[[nodiscard]] std::string ExpandTabs(std::string_view line);

}  // namespace vellumark::tools
