// SPDX-License-Identifier: MIT
//
// Header, pages and trailer (DSC 3.0).
#include <algorithm>
#include <array>
#include <string>

#include "document/resume_next.h"
#include "ps/oddities.h"
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

void PsWriter::BeginDocument(const LocalTime& now) {
  page_comments_.clear();
  lines_.Append("%!PS-Adobe-3.0");
  WriteHeaderComments(now);
  oddities::TurnFirstPage(state_, lines_);
}

void PsWriter::WriteHeaderComments(const LocalTime& now) {
  const auto& page = state_.page;
  const bool landscape = state_.orientation == OrientationConstants::Landscape;
  lines_.Append("%%BoundingBox: 0 0 ", page.width, ' ', page.height);
  lines_.Append("%%CreationDate: ", DateText(now));
  lines_.Append("%%Creator: ", state_.creator.bytes);
  lines_.Append("%%DocumentData: Clean8Bit");
  lines_.Append("%%DocumentMedia: ", page.name, ' ', page.width, ' ', page.height, " 0 () ()");
  lines_.Append("%%For: ", state_.author.bytes);
  lines_.Append("%%Orientation: ", landscape ? "Landscape" : "Portrait");
  lines_.Append("%%PageOrder: Ascend");
  pages_comment_ = lines_.Append("%%Pages: x");
  lines_.Append("%%Title: ", state_.title.bytes);
  lines_.Append("%%EndComments");
}

/// The whole page, margins included, filled and outlined in the page color.
void PsWriter::PaintBackground() {
  RectanglePath({0, state_.page.height}, state_.page.width, state_.page.height);
  Fill(state_.page_color.view());
  lines_.Append(state_.page_color.view(), " setrgbcolor");
  lines_.Append("stroke");
}

void PsWriter::BeginPage() {
  if (!oddities::kPageCommentFollowsBackground) WritePageComment();
}

void PsWriter::AnnouncePage() {
  if (oddities::kPageCommentFollowsBackground) WritePageComment();
}

void PsWriter::WritePageComment() { page_comments_.push_back(lines_.Append("%%Page: x y")); }

void PsWriter::EndPage() { lines_.Append("showpage"); }

document::RefusalNote PsWriter::EndDocument() {
  return document::ResumeNext([&] { lines_.Append("%%Trailer"); },  //
                              [&] { lines_.Append("%%EOF"); },
                              [&] {
                                const std::size_t pages = page_comments_.size();
                                lines_.Replace(pages_comment_, "%%Pages: " + std::to_string(pages));
                                for (std::size_t i = 0; i < pages; ++i) {
                                  lines_.Replace(page_comments_[i],
                                                 oddities::PageComment(pages, i + 1));
                                }
                              });
}

}  // namespace vellumark::ps
