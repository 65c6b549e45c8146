// SPDX-License-Identifier: MIT
//
// The header and the footer of every page, centered, in Times 10 and black:
//
//     the header     12 points high, above the top margin, if the margin has them
//     the footer     12 points high, above the bottom margin
//
// In their texts {page} stands for the page's number, {pages} for the number of pages, and {{ for a
// brace. How many pages there are is known only at the end: a text that asks for it is written
// then, at a place that the writer keeps.
#include <exception>

#include "document/document_model.h"
#include "document/lost_bytes.h"
#include "document/resume_next.h"

namespace vellumark::document {
namespace {

constexpr std::string_view kPage = "{page}";
constexpr std::string_view kPages = "{pages}";
constexpr std::string_view kBrace = "{{";

/// The text with its placeholders filled in.
std::string Expanded(std::string_view text, std::int32_t page, std::int32_t pages) {
  std::string expanded;
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find('{'), text.size());
    expanded.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.starts_with(kPage)) {
      expanded.append(std::to_string(page));
      text.remove_prefix(kPage.size());
    } else if (text.starts_with(kPages)) {
      expanded.append(std::to_string(pages));
      text.remove_prefix(kPages.size());
    } else if (!text.empty()) {
      expanded.push_back('{');
      text.remove_prefix(text.starts_with(kBrace) ? kBrace.size() : 1);
    }
  }
  return expanded;
}

/// Whether a text asks for the number of pages: expanded for two numbers it differs.
bool AsksForPages(std::string_view text) {
  return text.find(kPages) != std::string_view::npos &&
         Expanded(text, 1, 1) != Expanded(text, 1, 2);
}

}  // namespace

/// A head that asks for the number of pages makes both wait for it.
RefusalNote DocumentModel::WriteRunningHeads() noexcept {
  // Before Create there is no color; afterwards there is, black.
  const layout::ColorText color =
      state_.color.view().empty() ? layout::FormatColor(0, 0, 0) : state_.color;
  const layout::Font font = state_.font;
  const Points x = state_.position_x;
  const bool header = !state_.header.empty() && state_.margins.top >= kFooterHeight;
  const std::int32_t page = state_.pages_ended + 1;
  Points y;
  return ResumeNext(
      [&] { y = state_.Y(); },  //
      [&] { state_.color = layout::FormatColor(0, 0, 0); },
      [&] {
        SetFont(FontNumberConstants::Times, 10, FontStyleConstants::Regular,
                FontEffectConstants::NoFontEffect);
      },
      [&] {
        if (AsksForPages(state_.footer) || (header && AsksForPages(state_.header))) {
          held_pages_.push_back(
              {page, state_.margins, header ? state_.header : std::string(), state_.footer});
          try {
            writer_.HoldPlace();
          } catch (const std::exception&) {
            held_pages_.pop_back();  // there are as many as the writer has places
            throw;
          }
          return;
        }
        if (header) WriteRunningHead(state_.header, -kFooterHeight, page, 0);
        const Points footer_top = state_.UsableHeight() - kFooterHeight;
        if (!state_.footer.empty()) {
          WriteRunningHead(state_.footer, footer_top.value(), page, 0);
        }
      },
      [&] { state_.color = color; },
      [&] { SetFont(font.number, font.height, font.style, font.effect); },
      [&] { SetPosition(x, y); });
}

/// A text that does not fit between the margins is left out; Flush tells it, of the legal notice
/// excepted, which the host did not ask for.
void DocumentModel::WriteRunningHead(std::string_view text, int top, std::int32_t page,
                                     std::int32_t pages) {
  const std::string expanded = Expanded(text, page, pages);
  std::string storage;
  std::string_view written = expanded;
  if (state_.oddities.TextIsCodePageBytes()) {
    written = platform_.ToCodePage(expanded, storage);
    AddLostBytes(platform_, expanded, state_.font, lost_);
  }
  if (top <= state_.UsableHeight()) state_.position_y = state_.page.height - top;
  const RefusalNote refused =
      TryWriteText({.text = written, .alignment = AlignmentConstants::Center}, Numbers::Reserved);
  if (refused.reason == RefusalReason::TextTooWide && !refused_head_ && text != legal_notice_) {
    refused_head_ = {RefusalReason::RunningHeadTooWide, refused.got, refused.allowed};
  }
}

RefusalNote DocumentModel::WriteHeldPlaces() noexcept {
  const std::int32_t pages = state_.pages_ended;
  const PageState page_state = state_;  // NOLINT(cppcoreguidelines-slicing): the rest stays
  RefusalNote first;
  for (std::size_t i = 0; i < held_pages_.size(); ++i) {
    const HeldPage& page = held_pages_[i];
    const RefusalNote note = ResumeNext(
        [&] {
          state_.color = layout::FormatColor(0, 0, 0);
          SetFont(FontNumberConstants::Times, 10, FontStyleConstants::Regular,
                  FontEffectConstants::NoFontEffect);
          state_.margins = page.margins;
          state_.page_open = true;
        },
        [&] { writer_.BeginHeldPlace(i); },
        [&] {
          if (!page.header.empty()) {
            WriteRunningHead(page.header, -kFooterHeight, page.page_number, pages);
          }
        },
        [&] {
          const Points top = state_.UsableHeight() - kFooterHeight;
          if (!page.footer.empty()) {
            WriteRunningHead(page.footer, top.value(), page.page_number, pages);
          }
        },
        [&] { writer_.EndHeldPlace(); });
    if (!first) first = note;
  }
  static_cast<PageState&>(state_) = page_state;
  return first;
}

}  // namespace vellumark::document
