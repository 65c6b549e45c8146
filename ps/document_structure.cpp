// SPDX-License-Identifier: MIT
//
// Header, pages and trailer (DSC 3.0).
#include <algorithm>
#include <array>
#include <string>

#include "ps/ps_writer.h"

namespace vellumark::ps {
namespace {

constexpr std::array<std::string_view, 7> kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string TwoDigits(int value) {
  const std::string digits = std::to_string(value);
  return digits.size() < 2 ? '0' + digits : digits;
}

/// "Sun Nov 15 16:05:09 2026", in English whatever the locale.
std::string DateText(const LocalTime& now) {
  std::string text(kDays.at(static_cast<std::size_t>(now.weekday)));
  text.append(" ").append(kMonths.at(static_cast<std::size_t>(now.month - 1)));
  text.append(" ").append(std::to_string(now.day));
  text.append(" ").append(TwoDigits(now.hour));
  text.append(":").append(TwoDigits(now.minute));
  text.append(":").append(TwoDigits(now.second));
  const std::string year = std::to_string(now.year);
  return text.append(" ").append(std::string(4 - std::min<std::size_t>(4, year.size()), '0') +
                                 year);
}

}  // namespace

void PsWriter::BeginDocument(const LocalTime& now) {
  page_comments_.clear();
  lines_.Append("%!PS-Adobe-3.0");
  WriteHeaderComments(now);
  WriteRotation();
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

/// See oddities::kRotationIsRepeated and oddities::kTranslatesWidthFirst.
void PsWriter::WriteRotation() {
  const bool landscape = state_.orientation == OrientationConstants::Landscape;
  if (landscape != state_.rotated) {
    lines_.Append("90 rotate");
    lines_.Append("0 -", state_.page.height, " translate");
  } else if (landscape) {
    lines_.Append("180 rotate");
    lines_.Append('-', state_.page.height, " -", state_.page.width, " translate");
  }
}

/// The whole page, margins included, filled and outlined in the page colour.
void PsWriter::PaintBackground() {
  RectanglePath({0, state_.page.height}, state_.page.width, state_.page.height);
  Fill(state_.page_color.view());
  lines_.Append(state_.page_color.view(), " setrgbcolor");
  lines_.Append("stroke");
}

void PsWriter::AnnouncePage() { page_comments_.push_back(lines_.Append("%%Page: x y")); }

void PsWriter::EndPage() { lines_.Append("showpage"); }

void PsWriter::EndDocument() {
  lines_.Append("%%Trailer");
  lines_.Append("%%EOF");
  const std::size_t pages = page_comments_.size();
  lines_.Replace(pages_comment_, "%%Pages: " + std::to_string(pages));
  for (std::size_t i = 0; i < pages; ++i) {
    lines_.Replace(page_comments_[i], oddities::PageComment(pages, i + 1));
  }
}

}  // namespace vellumark::ps
