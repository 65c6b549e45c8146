// SPDX-License-Identifier: MIT
#include "tools/source_place.h"

#include <algorithm>
#include <string>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

/// Removes the first line with its end from `text`, and returns it without.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end);
  if (text.starts_with("\r\n")) text.remove_prefix(1);
  if (!text.empty()) text.remove_prefix(1);
  return line;
}

}  // namespace

std::string_view SourceText::Line(std::size_t number) const {
  std::string_view rest = text_;
  for (std::size_t i = 1; i < number; ++i) TakeLine(rest);
  return TakeLine(rest);
}

Place SourceText::PlaceOf(SourcePosition position) const {
  const std::string_view line = Line(position.line);
  const std::size_t before = std::min(std::max(position.byte, std::size_t{1}) - 1, line.size());
  return {position.line, CountCharacters(line.substr(0, before)) + 1};
}

Place SourceText::PlaceOf(SourcePosition position, char32_t character) const {
  std::string bytes;
  AppendUtf8(bytes, character);
  const std::size_t start = std::max(position.byte, std::size_t{1}) - 1;
  const std::size_t found = Line(position.line).find(bytes, start);
  if (found != std::string_view::npos) position.byte = found + 1;
  return PlaceOf(position);
}

}  // namespace vellumark::tools
