// SPDX-License-Identifier: MIT
//
// BlockParser: the line-by-line machine behind ParseBlocks.
//
//     BlockParser parser;
//     for (each line) parser.Line(line);
//     blocks = parser.Finish();
//
// A line is taken apart from the left: quote marks, indent, list marker, then what remains decides.
// The state says which block is open (none, a paragraph, fenced or indented code) and which list
// items enclose it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/markdown_blocks.h"
#include "tools/markdown_lines.h"

namespace vellumark::tools {

class BlockParser {
 public:
  /// The next line, without its LF.
  void Line(std::string_view raw);

  [[nodiscard]] std::vector<Block> Finish();

 private:
  enum class Open { None, Paragraph, IndentedCode, Fence };

  /// A list item: where its marker and its text stand.
  struct Item {
    std::size_t marker_column = 0;
    std::size_t content_column = 0;
  };

  void Blank();
  bool ContinueFence(std::string_view line);
  bool ContinueParagraph(std::string_view line, std::size_t indent);
  bool ContinueIndentedCode(std::string_view line, std::size_t indent);
  void Begin(std::string_view line, std::size_t indent);
  std::size_t BeginItem(const MarkerLine& item, std::size_t column);
  void BeginLeaf(std::string_view line, std::size_t column);
  [[nodiscard]] bool Interrupts(std::string_view line) const;
  bool TakeUnderline(std::string_view line);

  Block& Add(BlockKind kind);
  void Append(std::string_view text, std::size_t column);
  void AppendParagraphLine(std::string_view text, std::size_t column);
  void CloseItems(std::size_t indent, bool at_marker);
  void EmptyItem();

  std::vector<Block> blocks_;
  Open open_ = Open::None;
  std::vector<Item> items_;
  std::size_t quote_depth_ = 0;
  std::size_t quote_columns_ = 0;   // of this line, taken by its quote marks
  std::optional<FenceLine> fence_;  // while a fence is open
  std::size_t fence_indent_ = 0;
  std::size_t skipped_blank_lines_ = 0;  // in indented code, until more of it follows
  std::string marker_;                   // of an item whose first block has not begun
  bool blank_before_ = true;
  bool hard_break_ = false;  // the paragraph's last line ended in two blanks or a backslash
  std::size_t line_number_ = 0;
};

}  // namespace vellumark::tools
