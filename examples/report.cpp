// SPDX-License-Identifier: MIT
//
// report [FOLDER [TEXT_FILE]]: a report with bookmarks, a table of contents that links to its
// chapters, and running heads, as FOLDER/report.pdf and FOLDER/report.ps, from one function and a
// text file (report_text.h). report.py is the same program in Python.
#include <algorithm>
#include <cstdint>
#include <exception>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <vellumark/vellumark.h>

#include "examples/report_text.h"

namespace {

using namespace vellumark;
using vellumark::examples::Bar;
using vellumark::examples::Block;
using vellumark::examples::Report;

constexpr auto kNoAlignment = AlignmentConstants::NoAlignment;
using Font = FontNumberConstants;
using Style = FontStyleConstants;

struct Color {
  int red, green, blue;
};
constexpr Color kInk = {38, 40, 46};
constexpr Color kFaint = {120, 124, 134};
constexpr Color kAccent = {24, 78, 92};
constexpr Color kPale = {200, 224, 230};
constexpr Color kWhite = {255, 255, 255};

// A page is A5, 420 by 595 points; running heads keep a distance from the text.
constexpr int kPageWidth = 420;
constexpr int kMargin = 52;
constexpr int kWidth = kPageWidth - 2 * kMargin;
constexpr int kTop = 22;
constexpr int kBottom = 595 - 2 * kMargin - 24;
constexpr int kLeading = 3;  // between the lines of a paragraph
constexpr int kBarLeft = 76;
constexpr int kBarHeight = 16;

/// What the document refused is an error here: nothing is missing in a report.
void Need(const Document& doc, bool done, std::string_view what) {
  if (!done) throw std::runtime_error(std::string(what) + ": " + doc.LastRefusal().sentence);
}

void Pen(Document& doc, Font font, int size, Color color = kInk, Style style = Style::Regular) {
  doc.SetFont(font, size, style, FontEffectConstants::NoFontEffect);
  doc.SetColor(color.red, color.green, color.blue);
}

void Fill(Document& doc, int x, int y, int width, int height, Color color) {
  doc.SetColor(color.red, color.green, color.blue);
  doc.SetFillColor(color.red, color.green, color.blue);
  doc.SetFillStyle(true);
  Need(doc, doc.DrawRectangle(x, y, width, height), "a rectangle");
  doc.SetFillStyle(false);
}

/// A text; in PDF with a link over it.
template <class AnyDocument>
void Put(AnyDocument& doc, int x, int y, std::string_view text, const std::string& link = {}) {
  doc.SetPosition(x, y);
  if constexpr (std::is_same_v<AnyDocument, PDF>) {
    Need(doc, doc.WriteText(text, false, 0, kNoAlignment, link), text);
  } else {
    Need(doc, doc.WriteText(text), text);
  }
}

/// In PDF, a bookmark and an anchor of the current position. PostScript has neither.
template <class AnyDocument>
void Mark(AnyDocument& doc, const std::string& anchor, std::string_view text, int level) {
  if constexpr (std::is_same_v<AnyDocument, PDF>) {
    Need(doc, doc.SetAnchor(anchor) && doc.WriteBookmark(text, level), text);
  }
}

std::string HeadingAnchor(std::size_t index) {
  return std::string("heading ").append(std::to_string(index));
}

int YOf(const Document& doc) {
  std::int16_t x = 0;
  std::int16_t y = 0;
  doc.GetPosition(x, y);
  return y;
}

/// 46300 as "46,300".
std::string Grouped(std::int64_t number) {
  std::string text = std::to_string(number);
  for (auto at = static_cast<int>(text.size()) - 3; at > 0; at -= 3) {
    text.insert(static_cast<std::size_t>(at), 1, ',');
  }
  return text;
}

/// Where the next thing goes, and the running head of the page.
class Pages {
 public:
  explicit Pages(Document& doc) : doc_(doc) {}

  /// Its first page has no running head: the title stands there.
  void Chapter(const std::string& title) {
    New("");
    head_ = title;
  }

  /// Goes to a new page if so many points are not free.
  void MakeRoom(int height) {
    if (y + height > kBottom) New(head_);
  }

  int y = 0;

 private:
  void New(const std::string& head) {
    doc_.NewPage(kMargin, kMargin, kMargin, kMargin, kWhite.red, kWhite.green, kWhite.blue);
    // Read when the page ends; a brace in it would begin a placeholder.
    std::string escaped;
    for (const char c : head) escaped.append(c == '{' ? 2 : 1, c);
    doc_.Header(escaped);
    y = kTop;
  }

  Document& doc_;
  std::string head_;
};

template <class AnyDocument>
void DrawCover(AnyDocument& doc, const Report& report) {
  doc.NewPage(0, 0, 0, 0, kWhite.red, kWhite.green, kWhite.blue);
  Fill(doc, 0, 150, kPageWidth, 150, kAccent);
  doc.SetPosition(kMargin, 190);
  Pen(doc, Font::Helvetica, 28, kWhite, Style::Bold);
  Need(doc, doc.WriteMultiText(report.title, 6), report.title);
  Pen(doc, Font::Helvetica, 13, kPale);
  Put(doc, kMargin, YOf(doc) + 6, report.subtitle);
}

template <class AnyDocument>
void DrawTitle(AnyDocument& doc, int y, std::string_view title) {
  Pen(doc, Font::Helvetica, 22, kAccent, Style::Bold);
  Put(doc, 0, y, title);
  Fill(doc, 0, y + 32, 42, 3, kAccent);
}

/// Each chapter and section with its page, and in PDF with a link to it.
template <class AnyDocument>
void DrawContents(AnyDocument& doc, Pages& pages, const Report& report,
                  const std::vector<int>& numbers) {
  pages.Chapter("Contents");
  doc.SetPosition(0, pages.y);
  Mark(doc, "contents", "Contents", 1);
  DrawTitle(doc, pages.y, "Contents");
  pages.y += 48;
  std::size_t index = 0;
  for (const Block& block : report.blocks) {
    if (!block.IsHeading()) continue;
    const bool chapter = block.kind == Block::Kind::Chapter;
    if (chapter) pages.y += 8;
    pages.MakeRoom(18);
    Pen(doc, Font::Times, 11, kInk, chapter ? Style::Bold : Style::Regular);
    const std::string number = std::to_string(index < numbers.size() ? numbers[index] : 0);
    const std::string link = std::string("#").append(HeadingAnchor(index));
    const int left = chapter ? 0 : 16;
    const int end = left + doc.TextWidth(block.text);
    const int right = kWidth - doc.TextWidth(number);
    Put(doc, left, pages.y, block.text, link);
    Put(doc, right, pages.y, number, link);
    Pen(doc, Font::Times, 11, kFaint);
    for (int x = kWidth - 24; x > end + 6; x -= 6) Put(doc, x, pages.y, ".");
    pages.y += 18;
    ++index;
  }
}

/// Of a paragraph or a chart, at most that of a page; of a heading below another one, some lines.
int HeightOf(Document& doc, const Block& block) {
  if (block.kind == Block::Kind::Chart) return 4 + kBarHeight * static_cast<int>(block.bars.size());
  if (block.IsHeading()) return 70;
  Pen(doc, Font::Times, 11);
  doc.SetPosition(0);  // lines reach from there to the right margin
  return std::min(doc.TextHeight(block.text, kLeading), kBottom - kTop);
}

/// A chapter begins a page, and a section is on one page with what follows.
template <class AnyDocument>
void DrawHeading(AnyDocument& doc, Pages& pages, const Block& block, const Block& following,
                 std::size_t index) {
  const bool chapter = block.kind == Block::Kind::Chapter;
  if (chapter) {
    pages.Chapter(block.text);
  } else {
    pages.y += 8;
    pages.MakeRoom(std::min(22 + HeightOf(doc, following), kBottom - kTop));
  }
  doc.SetPosition(0, pages.y);
  Mark(doc, HeadingAnchor(index), block.text, chapter ? 1 : 2);
  if (chapter) {
    DrawTitle(doc, pages.y, block.text);
    pages.y += 54;
  } else {
    Pen(doc, Font::Helvetica, 13, kAccent, Style::Bold);
    Put(doc, 0, pages.y, block.text);
    pages.y += 22;
  }
}

template <class AnyDocument>
void DrawChart(AnyDocument& doc, Pages& pages, const Block& block) {
  pages.MakeRoom(HeightOf(doc, block));
  pages.y += 4;
  std::int64_t greatest = 1;
  for (const Bar& bar : block.bars) greatest = std::max(greatest, bar.value);
  Pen(doc, Font::Helvetica, 8);
  const int longest = kWidth - kBarLeft - 6 - doc.TextWidth(Grouped(greatest));
  for (const Bar& bar : block.bars) {
    const auto length = static_cast<int>(bar.value * longest / greatest);
    Fill(doc, kBarLeft, pages.y, length, kBarHeight - 5, kAccent);
    doc.SetColor(kInk.red, kInk.green, kInk.blue);
    Put(doc, kBarLeft - 7 - doc.TextWidth(bar.name), pages.y + 1, bar.name);
    Put(doc, kBarLeft + length + 6, pages.y + 1, Grouped(bar.value));
    pages.y += kBarHeight;
  }
  pages.y += 10;
}

/// As a whole on a page, unless it is longer than one.
void DrawParagraph(Document& doc, Pages& pages, const Block& block) {
  pages.MakeRoom(HeightOf(doc, block));
  Pen(doc, Font::Times, 11);
  doc.SetPosition(0, pages.y);
  Need(doc, doc.WriteMultiText(block.text, kLeading, kNoAlignment, true), block.text);
  pages.y = YOf(doc) + 7;
}

/// Draws the report with these page numbers in its contents; returns those that are right. `create`
/// creates the document.
template <class AnyDocument, class Create>
std::vector<int> DrawReport(const Report& report, const std::vector<int>& numbers, Create create) {
  AnyDocument doc;
  doc.Conforming(true);
  doc.PaperSize(PaperSizeConstants::A5);
  doc.Title(report.title);
  doc.Header("");  // the cover has none
  doc.Footer("");
  Need(doc, create(doc), report.title);
  DrawCover(doc, report);
  Pages pages(doc);
  DrawContents(doc, pages, report, numbers);
  doc.Footer("Page {page} of {pages}");
  std::vector<int> found;
  const Block none;
  for (std::size_t i = 0; i < report.blocks.size(); ++i) {
    const Block& block = report.blocks[i];
    if (block.IsHeading()) {
      const Block& following = i + 1 < report.blocks.size() ? report.blocks[i + 1] : none;
      DrawHeading(doc, pages, block, following, found.size());
      found.push_back(doc.PageNumber());
    } else if (block.kind == Block::Kind::Chart) {
      DrawChart(doc, pages, block);
    } else {
      DrawParagraph(doc, pages, block);
    }
  }
  if (!doc.LostCharacters().empty()) {
    throw std::runtime_error("the fonts have no letters for " + doc.LostCharacters());
  }
  doc.Flush();
  Need(doc, doc.LastRefusal().reason == RefusalReason::None, report.title);
  return found;
}

/// Twice: first into memory, only to see on what pages the chapters are.
template <class AnyDocument>
void WriteReport(const std::string& file, const Report& report) {
  std::ostringstream memory;
  const std::vector<int> numbers =
      DrawReport<AnyDocument>(report, {}, [&](auto& doc) { return doc.Create(memory); });
  DrawReport<AnyDocument>(report, numbers, [&](auto& doc) { return doc.Create(file); });
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 3) {
    std::cerr << "usage: report [FOLDER [TEXT_FILE]]\n";
    return 2;
  }
  try {
    const std::string folder = argc > 1 ? argv[1] : ".";
    const Report report =
        vellumark::examples::ReadReport(argc > 2 ? argv[2] : VELLUMARK_EXAMPLES "/report.txt");
    WriteReport<PDF>(folder + "/report.pdf", report);
    WriteReport<PS>(folder + "/report.ps", report);
  } catch (const std::exception& error) {
    std::cerr << "report: " << error.what() << '\n';
    return 1;
  }
}
