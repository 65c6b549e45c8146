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
    // On such a page every line would start another one.
    const int height = state_.font.height;
    if (height > state_.UsableHeight().value()) {
      return {RefusalReason::BeyondBottomMargin, height, state_.UsableHeight().value()};
    }
    paragraph.text = layout::WithPlainBlanks(given.text, state_.font, storage);
  }
  Points width = paragraph.width;
  if (const RefusalNote refused = PlaceParagraph(paragraph, width)) return refused;
  if (const RefusalNote refused = MeasureWords(paragraph.text, width)) return refused;
  return AllOrNothing([&] { return WriteLines(paragraph, width); });
}

/// Settles the width of the lines and sets the position to their left edge.
RefusalNote DocumentModel::PlaceParagraph(const Paragraph& paragraph, Points& width) {
  if (!layout::IsAlignment(paragraph.alignment)) {
    return {RefusalReason::InvalidAlignment, static_cast<std::int32_t>(paragraph.alignment)};
  }
  const Points usable = state_.UsableWidth();
  const bool aligned = paragraph.alignment != AlignmentConstants::NoAlignment;
  const Points reach = aligned ? width : state_.position_x + width;
  if (reach > usable) {
    return {RefusalReason::LinesTooWide, width.value(),
            usable.value() - (aligned ? 0 : state_.position_x.value())};
  }
  if (aligned) {
    if (width < 1) width = usable;
    state_.position_x = layout::GetAlignmentOffset(usable, width, paragraph.alignment);
  } else if (width < 1) {
    width = usable - state_.position_x;
  }
  return {};
}

/// Splits the text at every single blank; a word wider than the line refuses the paragraph.
RefusalNote DocumentModel::MeasureWords(std::string_view text, Points width) {
  const std::int32_t widest = layout::FontWidths::LargestSum(state_.font.height, width);
  words_.clear();
  std::size_t begin = 0;
  for (;;) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::int32_t sum = Setter().Measure(text.substr(begin, end - begin), state_.font);
    if (sum > widest) {
      const Points word_width = layout::FontWidths::InPoints(state_.font.height, sum);
      return {RefusalReason::WordTooWide, word_width.value(), width.value()};
    }
    words_.push_back({begin, end, sum});
    if (end == text.size()) return {};
    begin = end + 1;
  }
}

RefusalNote DocumentModel::WriteLines(const Paragraph& paragraph, Points width) {
  const Points left = state_.position_x;
  const std::int32_t widest = layout::FontWidths::LargestSum(state_.font.height, width);
  const std::int32_t blank = Setter().Measure(" ", state_.font);
  std::size_t line_begin = 0;
  std::int32_t line_sum = 0;
  for (const Word& word : words_) {
    const std::int32_t with_blank = word.sum + blank;  // a blank always follows a word
    if (line_sum + with_blank > widest) {
      const auto line = paragraph.text.substr(line_begin, word.begin - line_begin);
      const RefusalNote refused =
          WriteFinishedLine(WithoutTrailingBlanks(line), paragraph, width, left);
      if (refused) return refused;
      line_begin = word.begin;
      line_sum = 0;
    }
    line_sum += with_blank;
  }
  return WriteLastLine(paragraph.text.substr(line_begin), paragraph, left);
}

RefusalNote DocumentModel::WriteFinishedLine(std::string_view line, const Paragraph& paragraph,
                                             Points width, Points left) {
  if (const RefusalNote refused = BreakPageIfFull()) return refused;
  if (paragraph.justified) {
    // A line of one word cannot be stretched; it is written where it stands.
    JustifyText(line, width, Setter(), state_.font, justified_);
  } else {
    justified_.words.assign(1, line);
    justified_.positions.assign(1, 0);
  }
  const std::size_t count = justified_.words.size();
  if (count > 1 && !state_.oddities.JustifiedWordsStandAlone()) {
    return WriteWords(paragraph, width, left);
  }
  for (std::size_t j = 0; j < count; ++j) {
    state_.position_x = left + justified_.positions[j];
    const RefusalNote refused = TryWriteText(
        {.text = justified_.words[j], .carriage_return = j + 1 == count, .dy = paragraph.dy});
    if (refused.reason == RefusalReason::NoObjectNumbersLeft) return refused;
  }
  return {};
}

/// The words of a justified line as one text.
RefusalNote DocumentModel::WriteWords(const Paragraph& paragraph, Points width, Points left) {
  const std::size_t count = justified_.words.size();
  if (encoded_words_.size() < count) encoded_words_.resize(count);
  placed_words_.clear();
  for (std::size_t j = 0; j < count; ++j) {
    Setter().Encode(justified_.words[j], state_.font, encoded_words_[j]);
    placed_words_.push_back({encoded_words_[j].Runs(), justified_.positions[j]});
  }
  state_.position_x = left;
  const RefusalNote refused =
      PlaceText({.text = {}, .carriage_return = true, .dy = paragraph.dy, .words = placed_words_},
                width, Numbers::Free);
  if (refused) return refused;
  for (std::size_t j = 0; j < count; ++j) lost_.Add(encoded_words_[j].Lost());
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

/// How far down a line of a paragraph may reach: to the footer, if the line has room above it.
Points DocumentModel::ParagraphHeight() const {
  const Points usable = state_.UsableHeight();
  if (state_.oddities.ParagraphsReachIntoTheFooter()) return usable;
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
