// SPDX-License-Identifier: MIT
//
// Header, setup, pages and trailer (DSC 3.0), and going back over them.
#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "document/resume_next.h"
#include "ps/comment_text.h"
#include "ps/embedded_fonts.h"
#include "ps/prolog.h"
#include "ps/ps_writer.h"

namespace vellumark::ps {
namespace {

constexpr std::array<std::string_view, 7> kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string Padded(int value, std::size_t digits) {
  const std::string text = std::to_string(value);
  return std::string(digits - std::min(digits, text.size()), '0') + text;
}

/// "Sun Nov 15 16:05:09 2026", in English whatever the locale.
std::string DateText(const LocalTime& now) {
  std::string text(kDays[static_cast<std::size_t>(now.weekday) % kDays.size()]);
  text.append(" ").append(kMonths[static_cast<std::size_t>(now.month - 1) % kMonths.size()]);
  text.append(" ").append(std::to_string(now.day));
  text.append(" ").append(Padded(now.hour, 2));
  text.append(":").append(Padded(now.minute, 2));
  text.append(":").append(Padded(now.second, 2));
  return text.append(" ").append(Padded(now.year, 4));
}

}  // namespace

void PsWriter::Mark() noexcept {
  mark_ = {.page_comments = page_comments_.size(),
           .held_places = held_places_.size(),
           .fonts = fonts_.Here(),
           .glyphs = glyphs_.Here(),
           .language_level = language_level_,
           .graphics = graphics_};
}

void PsWriter::BackToMark() noexcept {
  page_comments_.resize(mark_.page_comments);
  held_places_.resize(mark_.held_places);
  fonts_.RollBack(mark_.fonts);
  glyphs_.RollBack(mark_.glyphs);
  language_level_ = mark_.language_level;
  graphics_ = mark_.graphics;
  if (mark_.dash_changed) std::swap(dash_, marked_dash_);
  mark_.dash_changed = false;
}

void PsWriter::BeginDocument(const LocalTime& now) {
  page_comments_.clear();
  held_places_.clear();
  fonts_.Clear();
  glyphs_.Clear();
  language_level_ = 2;
  graphics_ = {};
  const layout::Paper& page = state_.page;
  const bool landscape = state_.orientation == OrientationConstants::Landscape;
  turn_ = {(landscape ? 90 : 0) + (state_.rotated ? 90 : 0), page.width, page.height};
  if (turn_.degrees == 90 && !state_.oddities.OnlyTheFirstPageTurns()) {
    std::swap(turn_.paper_width, turn_.paper_height);
  }
  lines_.Append("%!PS-Adobe-3.0");
  WriteHeaderComments(now);
  if (state_.oddities.OnlyTheFirstPageTurns()) TurnFirstPage();
  if (!state_.oddities.FilesAreWithoutSetup()) {
    WriteProlog();
    WriteSetup();
  }
}

void PsWriter::WriteHeaderComments(const LocalTime& now) {
  const bool classic = state_.oddities.FilesAreWithoutSetup();
  const bool landscape =
      classic ? state_.orientation == OrientationConstants::Landscape : turn_.degrees == 90;
  const layout::Points width = turn_.paper_width;
  const layout::Points height = turn_.paper_height;
  lines_.Append("%%BoundingBox: 0 0 ", width, ' ', height);
  lines_.Append("%%CreationDate: ", DateText(now));
  WriteProperty("%%Creator: ", state_.creator);
  lines_.Append("%%DocumentData: ", classic ? "Clean8Bit" : "Clean7Bit");
  lines_.Append("%%DocumentMedia: ", state_.page.name, ' ', width, ' ', height, " 0 () ()");
  WriteProperty("%%For: ", state_.author);
  if (!classic) late_.language_level = lines_.Append("%%LanguageLevel: 2");
  lines_.Append("%%Orientation: ", landscape ? "Landscape" : "Portrait");
  lines_.Append("%%PageOrder: Ascend");
  late_.pages = lines_.Append("%%Pages: x");
  WriteProperty("%%Title: ", state_.title);
  late_.end_of_comments = lines_.Append("%%EndComments");
}

void PsWriter::WriteProperty(std::string_view comment, const document::HostText& text) {
  if (state_.oddities.TextIsPasted()) {
    lines_.Append(comment, text.bytes);
  } else if (!text.utf8.empty()) {
    lines_.Append(comment, CommentText(text.utf8));
  }
}

void PsWriter::TurnFirstPage() {
  if (turn_.degrees == 90) {
    lines_.Append("90 rotate");
    lines_.Append("0 -", state_.page.height, " translate");
  } else if (turn_.degrees == 180) {
    lines_.Append("180 rotate");
    lines_.Append('-', state_.page.height, " -", state_.page.width, " translate");
  }
}

void PsWriter::WriteProlog() {
  lines_.Append("%%BeginProlog");
  lines_.Append(Prolog());
  lines_.Append("%%EndProlog");
}

/// The paper. A size that is turned is not the printer's feature of that name.
void PsWriter::WriteSetup() {
  lines_.Append("%%BeginSetup");
  if (state_.rotated) {
    lines_.Append("%%BeginNonPPDFeature: PageSize");
  } else {
    lines_.Append("%%BeginFeature: *PageSize ", state_.page.name);
  }
  lines_.Append("<</PageSize[", turn_.paper_width, ' ', turn_.paper_height, "]>>setpagedevice");
  lines_.Append(state_.rotated ? "%%EndNonPPDFeature" : "%%EndFeature");
  late_.end_of_setup = lines_.Append("%%EndSetup");
}

/// The whole page, margins included, filled and, in a classic document, outlined in the page color.
void PsWriter::PaintBackground() {
  if (state_.oddities.BackgroundsHaveAnOutline()) {
    RectanglePath({0, state_.page.height}, state_.page.width, state_.page.height);
    Fill(state_.page_color);
    lines_.Append(state_.page_color, " setrgbcolor");
    lines_.Append("stroke");
  } else if (state_.page_color != layout::FormatColor(255, 255, 255)) {
    SetColor(state_.page_color);
    RectanglePath({0, state_.page.height}, state_.page.width, state_.page.height);
    lines_.Append("fill");
  }
}

void PsWriter::BeginPage() {
  if (state_.oddities.PageCommentsFollowTheBackground()) return;
  WritePageComment();
  BeginPageSetup();
}

void PsWriter::AnnouncePage() {
  if (state_.oddities.PageCommentsFollowTheBackground()) WritePageComment();
}

void PsWriter::WritePageComment() {
  const std::size_t page = page_comments_.size() + 1;
  page_comments_.push_back(lines_.Append("%%Page: ", page, ' ', page));
}

/// A page begins with the language's defaults.
void PsWriter::BeginPageSetup() {
  const layout::Paper& page = state_.page;
  lines_.Append("%%BeginPageSetup");
  lines_.Append("Vellumark begin");
  lines_.Append("/pgsave save def");
  if (turn_.degrees == 90) lines_.Append("90 rotate 0 -", page.height, " translate");
  if (turn_.degrees == 180) {
    lines_.Append("180 rotate -", page.width, " -", page.height, " translate");
  }
  lines_.Append("%%EndPageSetup");
  graphics_ = {};
  graphics_.in_page = true;
  ChangeDash({});
}

void PsWriter::EndPage() {
  if (!state_.oddities.PageCommentsFollowTheBackground()) {
    if (!graphics_.in_page) BeginPage();  // of a document without pages
    lines_.Append("%%PageTrailer");
    lines_.Append("pgsave restore end");
    graphics_.in_page = false;
  }
  lines_.Append("showpage");
}

/// An empty line keeps the place of the lines to come.
void PsWriter::HoldPlace() { held_places_.push_back(lines_.Append("")); }

/// The lines are written at the end of the file and then moved: nothing is known of what is in
/// force at the place.
void PsWriter::BeginHeldPlace(std::size_t index) {
  filled_place_ = held_places_.at(index);
  lines_.Here(filled_from_);
  graphics_.color = {};
  graphics_.fill_color = {};
  graphics_.font = -1;
  graphics_.thickness = 0;
}

void PsWriter::EndHeldPlace() {
  std::string text = lines_.TextSince(filled_from_);
  lines_.RollBack(filled_from_);
  if (text.empty()) return;
  text.resize(text.find_last_not_of("\r\n") + 1);
  lines_.Replace(filled_place_, std::move(text));
}

document::RefusalNote PsWriter::EndDocument() {
  return document::ResumeNext([&] { lines_.Append("%%Trailer"); },  //
                              [&] { lines_.Append("%%EOF"); },      //
                              [&] { FillLatePlaces(); });
}

void PsWriter::FillLatePlaces() {
  const std::size_t pages = page_comments_.size();
  lines_.Replace(late_.pages, "%%Pages: " + std::to_string(pages));
  if (state_.oddities.PageCommentsBeginWithTheCount()) {
    for (std::size_t i = 0; i < pages; ++i) {
      lines_.Replace(page_comments_[i],
                     "%%Page: " + std::to_string(pages) + ' ' + std::to_string(i + 1));
    }
  }
  if (state_.oddities.FilesAreWithoutSetup()) return;
  lines_.Replace(late_.language_level, "%%LanguageLevel: " + std::to_string(language_level_));
  const auto embedded = glyphs_.Used();
  lines_.Replace(late_.end_of_comments,
                 fonts_.NeededResources() + SuppliedResources(embedded) + "%%EndComments");
  const std::string fonts = fonts_.Setup() + EmbeddedFonts(embedded);
  if (fonts.empty()) return;
  lines_.Replace(late_.end_of_setup, "Vellumark begin\n" + fonts + "end\n%%EndSetup");
}

}  // namespace vellumark::ps
