// SPDX-License-Identifier: MIT
//
// WriteMultiText: a paragraph cut into lines, page after page.
//
// The words lie one behind the other in the text, so a line is a piece of it, and its width is a
// running sum in 1/1000 em: nothing is put together or measured twice to find where a line ends.
#include <algorithm>

#include "document/document_model.h"
#include "layout/alignment.h"
#include "layout/shown_characters.h"

namespace vellumark::document {
namespace {

std::string_view WithoutTrailingBlanks(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

}  // namespace

RefusalNote DocumentModel::WriteMultiText(const Paragraph& paragraph) noexcept {
  return Attempt([&] { return TryWriteMultiText(paragraph); });
}

RefusalNote DocumentModel::TryWriteMultiText(const Paragraph& given) {
  Paragraph paragraph = given;
  std::string storage;
  if (!state_.oddities.TextIsCodePageBytes()) {
    if (!state_.page_open) return {RefusalReason::NoPage};
    paragraph.text = layout::WithPlainBlanks(given.text, state_.font, storage);
  }
  Column column;
  if (const RefusalNote refused = CheckParagraph(paragraph)) return refused;
  if (const RefusalNote refused = PlaceParagraph(paragraph, column)) return refused;
  if (Shapes(paragraph.text)) {
    if (const RefusalNote refused = MeasurePieces(paragraph, column.width)) return refused;
    return AllOrNothing([&] { return WriteShapedLines(paragraph, column); });
  }
  state_.position_x = column.left;
  const layout::CodeWidths* const codes = Setter().ByteWidths(paragraph.text, state_.font);
  if (const RefusalNote refused = MeasureWords(paragraph.text, codes, column.width)) return refused;
  return AllOrNothing([&] { return WriteLines(paragraph, codes != nullptr, column); });
}

RefusalNote DocumentModel::CheckParagraph(const Paragraph& paragraph) const {
  if (!layout::IsAlignment(paragraph.alignment)) {
    return {RefusalReason::InvalidAlignment, static_cast<std::int32_t>(paragraph.alignment)};
  }
  // On such a page every line would start another one.
  const int height = state_.font.height;
  const int free = state_.UsableHeight().value();
  if (!state_.oddities.TextIsCodePageBytes() && height > free) {
    return {RefusalReason::BeyondBottomMargin, height, free};
  }
  return {};
}

/// Settles the left edge and the width of the lines.
RefusalNote DocumentModel::PlaceParagraph(const Paragraph& paragraph, Column& column) const {
  const Points usable = state_.UsableWidth();
  const bool aligned = paragraph.alignment != AlignmentConstants::NoAlignment;
  const Points reach = aligned ? paragraph.width : state_.position_x + paragraph.width;
  if (reach > usable) {
    return {RefusalReason::LinesTooWide, paragraph.width.value(),
            usable.value() - (aligned ? 0 : state_.position_x.value())};
  }
  column = {state_.position_x, paragraph.width};
  if (aligned) {
    if (column.width < 1) column.width = usable;
    column.left = layout::GetAlignmentOffset(usable, column.width, paragraph.alignment);
  } else if (column.width < 1) {
    column.width = usable - state_.position_x;
  }
  return {};
}

/// Splits the text at every single blank; a word wider than the line refuses the paragraph. `codes`
/// are the widths of its bytes, if each is a code by itself.
RefusalNote DocumentModel::MeasureWords(std::string_view text, const layout::CodeWidths* codes,
                                        Points width) {
  const std::int32_t widest = layout::FontWidths::LargestSum(state_.font.height, width);
  words_.clear();
  std::size_t begin = 0;
  for (;;) {
    std::size_t end = begin;
    std::int32_t sum = 0;
    if (codes != nullptr) {
      // A word that is wider than the line ends the loop before its sum can leave 32 bits.
      for (; end < text.size() && text[end] != ' ' && sum <= widest; ++end) {
        sum += (*codes)[static_cast<std::uint8_t>(text[end])];
      }
    }
    if (codes == nullptr || sum > widest) {
      end = std::min(text.find(' ', begin), text.size());
      sum = Setter().Measure(text.substr(begin, end - begin), state_.font);
    }
    if (sum > widest) {
      const Points word_width = layout::FontWidths::InPoints(state_.font.height, sum);
      return {RefusalReason::WordTooWide, word_width.value(), width.value()};
    }
    words_.push_back({begin, end, sum});
    if (end == text.size()) return {};
    begin = end + 1;
  }
}

RefusalNote DocumentModel::WriteLines(const Paragraph& paragraph, bool bytes_are_codes,
                                      const Column& column) {
  RefusalNote refused;
  std::size_t last = 0;  // the first word of the last line
  BreakLines(column.width, [&](LineOfWords line) {
    line.bytes_are_codes = bytes_are_codes;
    refused = WriteFinishedLine(paragraph, line, column.width, column.left);
    last = line.end;
    return refused;
  });
  if (refused) return refused;
  return WriteLastLine(paragraph.text.substr(words_[last].begin), paragraph, column.left);
}

RefusalNote DocumentModel::WriteFinishedLine(const Paragraph& paragraph, const LineOfWords& line,
                                             Points width, Points left) {
  if (const RefusalNote refused = BreakPageIfFull()) return refused;
  // Blanks at the end are not written, and the words between them are empty.
  std::size_t end = line.end;
  while (end > line.first && words_[end - 1].begin == words_[end - 1].end) --end;
  const std::size_t begins_at = end > line.first ? words_[line.first].begin : 0;
  const std::size_t ends_at = end > line.first ? words_[end - 1].end : 0;
  if (!paragraph.justified || end - line.first < 2) {
    // A line of one word cannot be stretched.
    state_.position_x = left;
    const RefusalNote refused =
        TryWriteText({.text = paragraph.text.substr(begins_at, ends_at - begins_at),
                      .carriage_return = true,
                      .dy = paragraph.dy});
    return refused.reason == RefusalReason::NoObjectNumbersLeft ? refused : RefusalNote{};
  }
  sums_.clear();
  for (std::size_t i = line.first; i < end; ++i) sums_.push_back(words_[i].sum + line.blank);
  sums_.back() -= line.blank;
  const auto rounding = state_.oddities.JustifiedWordsAreRoundedEach() ? layout::Rounding::Words
                                                                       : layout::Rounding::Sums;
  layout::JustifyWords(sums_, width, state_.font.height, rounding, positions_);
  const std::span<const Word> words(&words_[line.first], end - line.first);
  return state_.oddities.JustifiedWordsStandAlone()
             ? WriteWordsAlone(paragraph, words, left)
             : WriteWordsTogether(paragraph, line, words, width, left);
}

/// A word of a justified line with the blank behind it, if it is not the last.
std::string_view DocumentModel::TextOfWord(std::string_view text, std::span<const Word> words,
                                           std::size_t i) {
  const std::size_t end = i + 1 < words.size() ? words[i + 1].begin : words[i].end;
  return text.substr(words[i].begin, end - words[i].begin);
}

RefusalNote DocumentModel::WriteWordsAlone(const Paragraph& paragraph, std::span<const Word> words,
                                           Points left) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    state_.position_x = left + positions_[i];
    const RefusalNote refused = TryWriteText({.text = TextOfWord(paragraph.text, words, i),
                                              .carriage_return = i + 1 == words.size(),
                                              .dy = paragraph.dy});
    if (refused.reason == RefusalReason::NoObjectNumbersLeft) return refused;
  }
  return {};
}

RefusalNote DocumentModel::WriteWordsTogether(const Paragraph& paragraph, const LineOfWords& line,
                                              std::span<const Word> words, Points width,
                                              Points left) {
  const std::size_t count = words.size();
  placed_words_.clear();
  if (line.bytes_are_codes) {
    plain_runs_.clear();
    plain_runs_.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      plain_runs_.push_back({.bytes = TextOfWord(paragraph.text, words, i), .width = sums_[i]});
      placed_words_.push_back({std::span(&plain_runs_[i], 1), positions_[i]});
    }
  } else {
    if (encoded_words_.size() < count) encoded_words_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
      Setter().Encode(TextOfWord(paragraph.text, words, i), state_.font, encoded_words_[i]);
      placed_words_.push_back({encoded_words_[i].Runs(), positions_[i]});
    }
  }
  state_.position_x = left;
  const RefusalNote refused =
      PlaceText({.text = {}, .carriage_return = true, .dy = paragraph.dy, .words = placed_words_},
                width, Numbers::Free);
  if (refused || line.bytes_are_codes) return refused;
  for (std::size_t i = 0; i < count; ++i) lost_.Add(encoded_words_[i].Lost());
  return {};
}

/// The last line is never justified.
RefusalNote DocumentModel::WriteLastLine(std::string_view line, const Paragraph& paragraph,
                                         Points left) {
  if (const RefusalNote refused = BreakPageIfFull()) return refused;
  state_.position_x = left;
  std::string with_blank;
  if (state_.oddities.LastLinesEndWithABlank()) {
    with_blank.append(line).push_back(' ');
    line = with_blank;
  } else {
    line = WithoutTrailingBlanks(line);
  }
  const RefusalNote refused =
      TryWriteText({.text = line, .carriage_return = true, .dy = paragraph.dy});
  return refused.reason == RefusalReason::NoObjectNumbersLeft ? refused : RefusalNote{};
}

/// How far down a line of a paragraph may reach: to the footer, if there is one and the line has
/// room above it.
Points DocumentModel::ParagraphHeight() const {
  const Points usable = state_.UsableHeight();
  if (state_.oddities.ParagraphsReachIntoTheFooter() || state_.footer.empty()) return usable;
  return std::max<Points>(usable - kFooterHeight, state_.font.height);
}

RefusalNote DocumentModel::BreakPageIfFull() {
  if (state_.Y() + state_.font.height <= ParagraphHeight()) return {};
  // Before Create there is no page color.
  if (state_.page_color.view().empty()) throw RunTimeError(RunTimeError::SubscriptOutOfRange);
  const RefusalNote note = StartPage(state_.margins, state_.page_color);
  // The page's own margins are refused only if there is no document.
  return note.reason == RefusalReason::MarginsNotTaken ? RefusalNote{} : note;
}

}  // namespace vellumark::document
