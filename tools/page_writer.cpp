// SPDX-License-Identifier: MIT
#include "tools/page_writer.h"

#include <algorithm>
#include <string>

namespace vellumark::tools {
namespace {

constexpr int kFooterHeight = 20;  // the footer of the library and some space
constexpr int kNarrowest = 120;    // of a page whose footer fits
constexpr int kMostInset = 48;     // the widest escaped glyph has 0.6 em, 43 of 72 points
constexpr int kLinesPerPage = 3;   // of the largest text, at least
constexpr int kGlyphsPerLine = 6;  // of the largest text, at least
constexpr Rgb kTextColor{0, 0, 0};
constexpr Rgb kLinkColor{0, 0, 176};

std::int16_t Coordinate(int value) { return static_cast<std::int16_t>(value); }

void SetColor(Document& document, Rgb color) {
  document.SetColor(color.red, color.green, color.blue);
}

std::string_view LinkOf(const Run& run, const std::vector<std::string>& links) {
  return run.link == 0 ? std::string_view() : links[run.link - 1];
}

[[noreturn]] void RefuseMargins(int width, int height, int least_width, int least_height) {
  const auto size = [](int across, int down) {
    return std::to_string(std::max(across, 0)) + " x " + std::to_string(std::max(down, 0));
  };
  throw Failure("the margins leave " + size(width, height) +
                " points of the page for text, but at least " + size(least_width, least_height) +
                " are needed");
}

}  // namespace

PageWriter::PageWriter(OutputFormat& output, const PageSetup& setup)
    : output_(output), outer_(setup.margins), page_color_(setup.page_color) {
  std::int16_t page_width = 0;
  std::int16_t page_height = 0;
  output_.document().GetPageDimensions(page_width, page_height);
  const Margins& margins = setup.margins;
  // If the margins are too small to be reduced by that much, the area for text is reduced.
  const int overhang = setup.largest_size * 6 / 10 + 2;
  inset_x_ = std::min({margins.left, margins.right, kMostInset});
  inset_y_ = std::min(margins.top, setup.headroom);
  width_ = page_width - margins.left - margins.right - std::max(overhang - inset_x_, 0);
  height_ = page_height - margins.top - margins.bottom - kFooterHeight;
  const int least_width = std::max(kNarrowest, kGlyphsPerLine * setup.largest_size);
  const int least_height = kLinesPerPage * setup.largest_size;
  if (width_ < least_width || height_ < least_height) {
    RefuseMargins(width_, height_, least_width, least_height);
  }
  outer_.left -= inset_x_;
  outer_.right -= inset_x_;
  outer_.top -= inset_y_;
  NewPage();
}

void PageWriter::NewPage() {
  Document& document = output_.document();
  document.NewPage(Coordinate(outer_.left), Coordinate(outer_.top), Coordinate(outer_.right),
                   Coordinate(outer_.bottom), page_color_.red, page_color_.green, page_color_.blue);
  Check(document.LastRefusal().reason == RefusalReason::None);
  y_ = 0;
  ++pages_;
}

void PageWriter::WriteLine(const Line& line, const std::vector<std::string>& links, int x,
                           int size) {
  for (const Run& run : line.runs) {
    Prepare(run, x, size - run.face.size);
    Check(output_.WriteText(run.text, LinkOf(run, links)));
  }
}

void PageWriter::WriteTitleLine(const Line& line, const std::vector<std::string>& links, int x,
                                int size, BulletConstants bullet) {
  if (line.runs.empty()) return;
  const Run& first = line.runs.front();
  Prepare(first, x, size - first.face.size);
  Check(output_.WriteTitle(first.text, bullet, LinkOf(first, links)));
  const Line rest{{line.runs.begin() + 1, line.runs.end()}};
  WriteLine(rest, links, x + size - 1, size);
}

void PageWriter::DrawLine(Point from, Point to, int thickness, Rgb color) {
  Document& document = output_.document();
  SetColor(document, color);
  document.SetThickness(static_cast<std::uint8_t>(thickness));
  const auto y = [this](Point point) { return Coordinate(inset_y_ + y_ + point.y); };
  Check(document.DrawLine(Coordinate(inset_x_ + from.x), y(from), Coordinate(inset_x_ + to.x),
                          y(to)));
  document.SetThickness(1);
}

void PageWriter::FillRectangle(Point corner, int width, int height, Rgb color) {
  Document& document = output_.document();
  SetColor(document, color);
  document.SetFillColor(color.red, color.green, color.blue);
  document.SetFillStyle(true);
  // Half of the outline, which has the same color, is outside of the rectangle.
  Check(document.DrawRectangle(Coordinate(inset_x_ + corner.x),
                               Coordinate(inset_y_ + y_ + corner.y), Coordinate(width),
                               Coordinate(height)));
  document.SetFillStyle(false);
  document.SetFillColor(kTextColor.red, kTextColor.green, kTextColor.blue);  // of bullets
}

bool PageWriter::DrawPicture(const std::string& file, EncodingConstants encoding,
                             const std::string& link, int x, const PictureSize& box) {
  Document& document = output_.document();
  document.SetPictureDimensions(Coordinate(box.width), Coordinate(box.height));
  MoveTo(x, 0);
  const bool drawn = output_.DrawPicture(file, encoding, link);
  const RefusalReason reason = document.LastRefusal().reason;
  if (reason == RefusalReason::NoObjectNumbersLeft) Check(drawn);
  return drawn;
}

void PageWriter::SetAnchor(const std::string& name) {
  MoveTo(0, 0);
  Check(output_.SetAnchor(name));
}

void PageWriter::WriteBookmark(const std::string& text, int level) {
  MoveTo(0, 0);
  Check(output_.WriteBookmark(text, level));
}

void PageWriter::MoveTo(int x, int below) {
  output_.document().SetPosition(Coordinate(inset_x_ + x), Coordinate(inset_y_ + y_ + below));
}

/// Sets color, font and position for a run.
void PageWriter::Prepare(const Run& run, int x, int below) {
  using enum FontEffectConstants;
  Document& document = output_.document();
  SetColor(document, run.link == 0 || run.quiet ? kTextColor : kLinkColor);
  const auto underline = run.underlined ? Underline : NoFontEffect;
  document.SetFont(output_.NumberOf(run.face), run.face.size, run.face.style,
                   run.struck ? Strikethrough : underline);
  MoveTo(x + run.x, below);
}

void PageWriter::Check(bool done) {
  if (done) return;
  const Refusal refusal = output_.document().LastRefusal();
  if (refusal.reason == RefusalReason::NoObjectNumbersLeft) {
    throw ObjectNumbersUsedUp(refusal.sentence);
  }
  throw Failure("the document refused a text: " + refusal.sentence);
}

}  // namespace vellumark::tools
