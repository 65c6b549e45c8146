// SPDX-License-Identifier: MIT
//
// WriteMultiText with loaded fonts: a paragraph is a row of pieces that no line is broken in, which
// end behind blanks, and also between Chinese, Japanese and Thai words. Blanks at the end of a line
// take no room. A paragraph that runs from right to left ends its lines at the left, so that they
// stand at the right edge of the column.
#include <algorithm>

#include "document/document_model.h"

namespace vellumark::document {

/// The pieces of the paragraph with their widths; one that is wider than a line refuses it.
RefusalNote DocumentModel::MeasurePieces(const Paragraph& paragraph, Points width) {
  shaping_->Prepare(paragraph.text, state_.font, shaped_paragraph_);
  const std::int32_t widest = layout::FontWidths::LargestSum(state_.font.height, width);
  for (const layout::TextPiece& piece : shaped_paragraph_.Pieces()) {
    if (piece.solid_width <= widest) continue;
    const auto sum = static_cast<std::int32_t>(std::min<std::int64_t>(piece.solid_width, 1 << 24));
    const Points word = layout::FontWidths::InPoints(state_.font.height, sum);
    return {RefusalReason::WordTooWide, word.value(), width.value()};
  }
  return {};
}

/// Calls `line` with the pieces of every line and what is free in it, up to the first that returns
/// a refusal.
template <class Line>
void DocumentModel::BreakPieces(Points width, const Line& line) {
  const std::int64_t widest = layout::FontWidths::LargestSum(state_.font.height, width);
  const auto& pieces = shaped_paragraph_.Pieces();
  // The width to the point, which justified lines reach.
  const std::int64_t target = std::int64_t{1000} * width.value() / state_.font.height;
  std::size_t first = 0;
  std::int64_t sum = 0;  // with the blanks behind the last piece
  std::int64_t solid = 0;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > first && sum + pieces[i].solid_width > widest) {
      if (line(layout::LineOfPieces{first, i, target - solid})) return;
      first = i;
      sum = 0;
    }
    solid = sum + pieces[i].solid_width;
    sum = solid + pieces[i].blank_width;
  }
  line(layout::LineOfPieces{first, pieces.size(), target - solid});
}

std::int32_t DocumentModel::CountShapedLines(Points width) {
  std::int32_t lines = 0;
  BreakPieces(width, [&](const layout::LineOfPieces& /*line*/) -> RefusalNote {
    ++lines;
    return {};
  });
  return lines;
}

RefusalNote DocumentModel::WriteShapedLines(const Paragraph& paragraph, const Column& column) {
  RefusalNote refused;
  const std::size_t pieces = shaped_paragraph_.Pieces().size();
  BreakPieces(column.width, [&](const layout::LineOfPieces& line) {
    const bool justified = paragraph.justified && line.end < pieces;
    refused = WriteShapedLine(paragraph, column, line, justified);
    return refused;
  });
  return refused;
}

RefusalNote DocumentModel::WriteShapedLine(const Paragraph& paragraph, const Column& column,
                                           layout::LineOfPieces line, bool justified) {
  if (const RefusalNote refused = BreakPageIfFull()) return refused;
  if (!justified) line.spare = 0;
  shaping_->EncodeLine(shaped_paragraph_, line, state_.font, encoded_);
  const Points width =
      std::min(layout::FontWidths::InPoints(state_.font.height, encoded_.Width()), column.width);
  state_.position_x = column.left;
  if (shaped_paragraph_.RunsRightToLeft()) {
    state_.position_x = column.left + (column.width - width);
  }
  return PlaceText({.text = {}, .carriage_return = true, .dy = paragraph.dy}, width, Numbers::Free);
}

}  // namespace vellumark::document
