// SPDX-License-Identifier: MIT
#include "tools/source_place.h"

#include <algorithm>
#include <string>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

}  // namespace

std::string_view SourceText::Line(std::size_t number) const {
  if (line_starts_.empty()) FindLines();
  if (number > line_starts_.size()) return {};
  const std::string_view rest = text_.substr(line_starts_[std::max(number, std::size_t{1}) - 1]);
  const auto* const end = std::find_if(rest.begin(), rest.end(), IsLineEnd);
  return rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
}

void SourceText::FindLines() const {
  line_starts_.push_back(0);
  for (std::size_t at = 0; at < text_.size(); ++at) {
    if (!IsLineEnd(text_[at])) continue;
    if (text_.substr(at).starts_with("\r\n")) ++at;
    line_starts_.push_back(at + 1);
  }
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
