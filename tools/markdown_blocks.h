// SPDX-License-Identifier: MIT
//
// Light Markdown, first step: a text is cut into blocks.
//
//     for (const Block& block : ParseBlocks(text)) ...
//
// Titles (# to ######, or a line underlined with === or ---), paragraphs with their hard-wrapped
// lines joined, list items (-, *, +, 1., 1) ) nested by indent, block quotes (>), code (between
// lines of ``` or ~~~, or indented by four columns), rules (---, ***, ___) and pictures (a
// paragraph of one line that is nothing but ![alt](file), also as the label of a link). A line that
// begins with
// "|" stays a line of its own. Everything else, HTML too, is plain text; nothing is an error.
//
// Line ends are LF or CR LF; tabs stop at every fourth column. Time and memory are linear.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::tools {

enum class BlockKind { Title, Paragraph, Code, Rule, Picture };

/// A place in the input, both counted from 1; a column is a character.
struct Place {
  std::size_t line = 1;
  std::size_t column = 1;
};

struct Block {
  BlockKind kind = BlockKind::Paragraph;
  int level = 0;  ///< of a title, 1 to 6
  std::size_t quote_depth = 0;
  std::size_t list_depth = 0;
  std::string marker;        ///< in front of a list item's first block: "-" or "3."
  bool blank_before = true;  ///< false where it directly follows the block before
  std::string text;          ///< '\n' ends a line that must end there, in code every line
  std::string picture;       ///< the file of a picture, whose `text` is what stands in the input
  std::string picture_link;  ///< empty for none

  /// Which part of `text` came from where: entries in rising order of their start.
  struct Origin {
    std::size_t start = 0;
    Place place;
  };
  std::vector<Origin> origins;

  /// Where the character at `offset` of `text` stands in the input.
  [[nodiscard]] Place PlaceOf(std::size_t offset) const;
};

[[nodiscard]] std::vector<Block> ParseBlocks(std::string_view text);

}  // namespace vellumark::tools
