// SPDX-License-Identifier: MIT
//
// The text of a report from a file in UTF-8: the title and the subtitle in its first lines, and
// then blocks with empty lines between them, "# chapter", "## section", a chart of lines
// "| name | number", or a paragraph.
#pragma once

#include <charconv>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace vellumark::examples {

struct Bar {
  std::string name;
  std::int64_t value = 0;
};

struct Block {
  enum class Kind { Chapter, Section, Paragraph, Chart };
  Kind kind = Kind::Paragraph;
  std::string text;
  std::vector<Bar> bars;  // of a chart

  [[nodiscard]] bool IsHeading() const { return kind == Kind::Chapter || kind == Kind::Section; }
};

struct Report {
  std::string title;
  std::string subtitle;
  std::vector<Block> blocks;
};

inline std::string_view Trimmed(std::string_view text) {
  while (text.starts_with(' ')) text.remove_prefix(1);
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// "| name | number"
inline Bar ReadBar(std::string_view line) {
  const std::size_t second = line.find('|', 1);
  if (line.starts_with('|') && second != std::string_view::npos) {
    const std::string_view digits = Trimmed(line.substr(second + 1));
    Bar bar{.name = std::string(Trimmed(line.substr(1, second - 1)))};
    const char* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars(digits.data(), end, bar.value);
    if (error == std::errc() && stopped == end && bar.value >= 0) return bar;
  }
  throw std::runtime_error("not a line of a chart, \"| name | number\": '" + std::string(line) +
                           "'");
}

inline Block ReadBlock(const std::vector<std::string>& lines) {
  Block block;
  if (lines[0].starts_with("| ")) {
    block.kind = Block::Kind::Chart;
    for (const std::string& line : lines) block.bars.push_back(ReadBar(line));
    return block;
  }
  for (const std::string& line : lines) {
    if (!block.text.empty()) block.text += ' ';
    block.text += line;
  }
  if (block.text.starts_with("# ")) {
    block.kind = Block::Kind::Chapter;
    block.text.erase(0, 2);
  } else if (block.text.starts_with("## ")) {
    block.kind = Block::Kind::Section;
    block.text.erase(0, 3);
  }
  return block;
}

/// Throws std::runtime_error if the file cannot be read, or a line of a chart is none.
inline Report ReadReport(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error(file + ": it cannot be read");
  std::string text;
  const auto next_line = [&] {
    const bool found = static_cast<bool>(std::getline(stream, text));
    if (!found) text.clear();
    if (text.ends_with('\r')) text.pop_back();
    return found;
  };
  Report report;
  next_line();
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  report.title = text;
  next_line();
  report.subtitle = text;
  std::vector<std::string> lines;
  for (bool more = true; more;) {
    more = next_line();
    if (!text.empty()) {
      lines.push_back(text);
    } else if (!lines.empty()) {
      report.blocks.push_back(ReadBlock(lines));
      lines.clear();
    }
  }
  return report;
}

}  // namespace vellumark::examples
