// SPDX-License-Identifier: MIT
#include "tools/code_block.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tools/shown_text.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kTabStop = 4;
constexpr std::size_t kContinuationColumns = 2;  // the indent of the rest of a broken line
constexpr std::size_t kLinesTogether = 2;

struct Row {
  std::string text;
  std::size_t columns = 0;

  [[nodiscard]] bool IsEmpty() const { return text.find_first_not_of(' ') == std::string::npos; }
};

class RowMaker {
 public:
  RowMaker(TextMeasure& measure, const Face& face, int width)
      : measure_(measure), face_(face), blank_(measure.Width(face, " ")) {
    columns_ = std::max<std::size_t>(
        static_cast<std::size_t>(std::int64_t{std::max(width, 0)} * 1000 / blank_), 1);
  }

  /// The lines, broken where they are too wide, without empty lines at the end.
  std::vector<Row> Make(std::string_view text) {
    while (!text.empty()) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      AddLine(text.substr(0, end));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
    while (!rows_.empty() && rows_.back().IsEmpty()) rows_.pop_back();
    return std::move(rows_);
  }

 private:
  void AddLine(std::string_view text) {
    rows_.emplace_back();
    std::size_t column = 0;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t start = at;
      SkipMarkedCharacter(text, at);
      std::string shown;
      if (text[start] == '\t') {
        shown.assign(kTabStop - column % kTabStop, ' ');
      } else {
        for (std::size_t part = start; part < at;) AppendShown(NextCharacter(text, part), shown);
      }
      const std::size_t columns = ColumnsOf(shown);
      if (rows_.back().columns + columns > columns_) BreakRow();
      rows_.back().text += shown;
      rows_.back().columns += columns;
      column += columns;
    }
  }

  /// Breaks the last row, at its last blank if that is in the last third of the row.
  void BreakRow() {
    Row& row = rows_.back();
    const std::size_t size = row.text.size();
    const std::size_t blank = row.text.rfind(' ');
    const bool late = blank != std::string::npos && blank + 1 > size * 2 / 3 && blank + 1 < size;
    Row rest{std::string(kContinuationColumns, ' '), 0};
    if (late) {
      rest.text += row.text.substr(blank + 1);
      row.text.resize(blank + 1);
    }
    rest.columns = ColumnsOf(rest.text);
    rows_.push_back(std::move(rest));
  }

  [[nodiscard]] std::size_t ColumnsOf(const std::string& text) {
    return static_cast<std::size_t>((measure_.Width(face_, text) + blank_ - 1) / blank_);
  }

  TextMeasure& measure_;
  Face face_;
  std::int64_t blank_;
  std::size_t columns_ = 1;
  std::vector<Row> rows_;
};

/// How many of `left` rows go on a page with room for `room` of them; 0 if none.
std::size_t RowsOnPage(std::size_t left, std::size_t room) {
  if (left <= room) return left;
  const std::size_t next = left - room;
  if (next < kLinesTogether) room = left > kLinesTogether ? left - kLinesTogether : 0;
  return room < kLinesTogether ? 0 : room;
}

}  // namespace

void SetCode(std::string_view text, const BlockSetting& setting) {
  PageWriter& pages = setting.pages;
  TextFlow& flow = setting.flow;
  const int size = CodeSize(setting.style.size);
  const int pitch = LinePitch(size);
  const int padding = CodePadding(size);
  const Face face{FontNumberConstants::Courier, FontStyleConstants::Regular,
                  static_cast<std::uint8_t>(size)};
  const int x = flow.left() + padding;
  std::vector<Row> rows = RowMaker(setting.measure, face, flow.width() - 2 * padding).Make(text);
  if (rows.empty()) rows.emplace_back();
  flow.BeginBlock(ParagraphSpace(setting.style.size));
  for (std::size_t done = 0; done < rows.size();) {
    const int free = std::max(pages.height() - pages.y() - 2 * padding, 0);
    const auto fitting = static_cast<std::size_t>(free / pitch);
    std::size_t count = RowsOnPage(rows.size() - done, fitting);
    if (count == 0 && !pages.AtTop()) {
      flow.NewPage();
      continue;
    }
    count = std::max<std::size_t>(count, 1);
    const int height = static_cast<int>(count) * pitch + 2 * padding;
    pages.FillRectangle({flow.left(), 0}, flow.width(), height, kCodeBackground);
    pages.Advance(padding);
    for (std::size_t end = done + count; done < end; ++done) {
      if (done == 0) flow.WriteMarker();
      if (!rows[done].IsEmpty()) {
        pages.WriteLine({{{0, face, rows[done].text, 0, false}}}, {}, x, size);
      }
      pages.Advance(pitch);
    }
    pages.Advance(padding);
    if (done < rows.size()) flow.NewPage();
  }
  flow.EndBlock(ParagraphSpace(setting.style.size));
}

}  // namespace vellumark::tools
