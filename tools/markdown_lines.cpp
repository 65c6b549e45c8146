// SPDX-License-Identifier: MIT
#include "tools/markdown_lines.h"

#include <algorithm>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kTabStop = 4;
constexpr std::size_t kLongestNumber = 9;  // digits of a list number; a longer one is plain text
constexpr std::size_t kWidestGap = 4;      // blanks behind a marker; more begin indented code

std::size_t CountLeading(std::string_view line, char mark) {
  return std::min(line.find_first_not_of(mark), line.size());
}

std::string_view TrimEnd(std::string_view text, char mark) {
  return text.substr(0, text.find_last_not_of(mark) + 1);
}

/// Length of "-" or "12." in front of a blank or the line's end; 0 for no marker.
std::size_t MarkerLength(std::string_view line) {
  std::size_t length = 0;
  if (!line.empty() && std::string_view("-*+").find(line[0]) != std::string_view::npos) {
    length = 1;
  } else {
    const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
    if (digits == 0 || digits > kLongestNumber || digits == line.size()) return 0;
    if (line[digits] != '.' && line[digits] != ')') return 0;
    length = digits + 1;
  }
  return length == line.size() || line[length] == ' ' ? length : 0;
}

}  // namespace

std::optional<TitleLine> AsTitle(std::string_view line) {
  const std::size_t level = CountLeading(line, '#');
  if (level == 0 || level > 6 || (level < line.size() && line[level] != ' ')) return std::nullopt;
  const std::size_t start = std::min(line.find_first_not_of(' ', level), line.size());
  std::string_view text = line.substr(start);
  const std::string_view without_marks = TrimEnd(text, '#');
  if (without_marks.empty() || without_marks.back() == ' ') text = TrimEnd(without_marks, ' ');
  return TitleLine{static_cast<int>(level), start, text};
}

std::optional<FenceLine> AsFence(std::string_view line) {
  if (line.empty() || (line[0] != '`' && line[0] != '~')) return std::nullopt;
  const std::size_t length = CountLeading(line, line[0]);
  if (length < 3) return std::nullopt;
  const std::string_view words = line.substr(length);
  // ```code``` on one line is a code span.
  if (line[0] == '`' && words.find('`') != std::string_view::npos) return std::nullopt;
  return FenceLine{line[0], length, words.find_first_not_of(' ') == std::string_view::npos};
}

std::optional<MarkerLine> AsMarker(std::string_view line) {
  const std::size_t length = MarkerLength(line);
  if (length == 0) return std::nullopt;
  std::size_t content = std::min(line.find_first_not_of(' ', length), line.size());
  if (content - length > kWidestGap) content = length + 1;
  return MarkerLine{line.substr(0, length), content};
}

bool IsRule(std::string_view line) {
  if (line.empty() || std::string_view("-*_").find(line[0]) == std::string_view::npos) return false;
  const char mark = line[0];
  return std::count(line.begin(), line.end(), mark) >= 3 &&
         std::all_of(line.begin(), line.end(), [mark](char c) { return c == mark || c == ' '; });
}

int UnderlineLevel(std::string_view line) {
  if (line.size() < 3) return 0;
  if (CountLeading(line, '=') == line.size()) return 1;
  return CountLeading(line, '-') == line.size() ? 2 : 0;
}

std::string ExpandTabs(std::string_view line) {
  std::string expanded;
  expanded.reserve(line.size());
  std::size_t column = 0;
  for (std::size_t at = 0; at < line.size();) {
    const char32_t character = NextCharacter(line, at);
    if (character == '\t') {
      const std::size_t blanks = kTabStop - column % kTabStop;
      expanded.append(blanks, ' ');
      column += blanks;
      continue;
    }
    const bool breaks = character == '\f' || character == '\v' || character == '\r';
    AppendUtf8(expanded, breaks ? U' ' : character);
    ++column;
  }
  return expanded;
}

}  // namespace vellumark::tools
