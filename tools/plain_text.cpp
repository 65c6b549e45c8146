// SPDX-License-Identifier: MIT
#include "tools/plain_text.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tools/shown_text.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kTabStop = 8;

/// What a terminal shows in one column.
struct Cell {
  std::string text;  // a character, with a combining mark if it has one
  bool bold = false;
  bool underlined = false;

  [[nodiscard]] bool LooksLike(const Cell& other) const {
    return bold == other.bold && underlined == other.underlined;
  }
};

bool IsPrintableAscii(std::string_view line) {
  return std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c < 0x7F; });
}

/// Moves `at` behind an escape sequence that begins there: ESC [ parameters letter.
void SkipEscape(std::string_view line, std::size_t& at) {
  ++at;
  if (at == line.size() || line[at] != '[') return;
  ++at;
  while (at < line.size() && line[at] >= ' ' && line[at] < '@') ++at;
  if (at < line.size()) ++at;
}

/// Writes `mark` over what is in the column already.
void Overstrike(Cell& cell, const std::string& mark) {
  if (mark == cell.text) {
    cell.bold = true;
  } else if (mark == "_") {
    cell.underlined = true;
  } else if (cell.text == "_") {
    cell.text = mark;
    cell.underlined = true;
  } else if (mark != " ") {
    cell.text = mark;
  }
}

/// The columns of a line.
std::vector<Cell> CellsOf(std::string_view line) {
  constexpr char kEscape = 0x1B;
  const Cell blank{std::string(1, ' ')};
  std::vector<Cell> cells;
  std::size_t column = 0;
  for (std::size_t at = 0; at < line.size();) {
    if (line[at] == '\b') {
      column -= column > 0 ? 1 : 0;
      ++at;
    } else if (line[at] == '\t') {
      column += kTabStop - column % kTabStop;
      ++at;
    } else if (line[at] == kEscape) {
      SkipEscape(line, at);
    } else {
      const std::size_t start = at;
      SkipMarkedCharacter(line, at);
      std::string shown;
      for (std::size_t part = start; part < at;) AppendShown(NextCharacter(line, part), shown);
      if (column < cells.size()) {
        Overstrike(cells[column], shown);
      } else {
        while (cells.size() < column) cells.push_back(blank);
        cells.push_back({shown});
      }
      ++column;
    }
  }
  return cells;
}

class PlainTextSetter {
 public:
  PlainTextSetter(PageWriter& pages, const TextStyle& style, TextMeasure& measure)
      : pages_(pages),
        measure_(measure),
        size_(CodeSize(style.size)),
        pitch_(LinePitch(size_)),
        plain_{FontNumberConstants::Courier, FontStyleConstants::Regular,
               static_cast<std::uint8_t>(size_)},
        blank_(measure.Width(plain_, " ")),
        columns_(std::max<std::size_t>(
            static_cast<std::size_t>(std::int64_t{pages.width()} * 1000 / blank_), 1)) {}

  void Set(std::string_view text, const LineProgress& progress) {
    for (std::size_t number = 1; !text.empty(); ++number) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      progress(number);
      SetLine(text.substr(0, end));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
  }

 private:
  /// A line of the input, which a form feed ends.
  void SetLine(std::string_view line) {
    for (;;) {
      const std::size_t feed = line.find('\f');
      std::string_view part = line.substr(0, feed);
      if (part.ends_with('\r')) part.remove_suffix(1);
      const bool last = feed == std::string_view::npos;
      // A form feed at the end of a line starts one page, and no empty line on it.
      if (last || !part.empty()) SetRows(part);
      if (last) return;
      page_is_due_ = true;
      line.remove_prefix(feed + 1);
      if (line.empty()) return;
    }
  }

  void SetRows(std::string_view line) {
    if (IsPrintableAscii(line)) {
      do {
        SetPlainRow(line.substr(0, columns_));
        line.remove_prefix(std::min(columns_, line.size()));
      } while (!line.empty());
      return;
    }
    const std::vector<Cell> cells = CellsOf(line);
    std::size_t from = 0;
    do {
      const std::size_t end = RowEnd(cells, from);
      SetRow({cells.begin() + static_cast<std::ptrdiff_t>(from),
              cells.begin() + static_cast<std::ptrdiff_t>(end)});
      from = end;
    } while (from < cells.size());
  }

  /// The end of the row that begins with a cell. A character may be wider than a column: in a
  /// classic document "(c)" stands for one.
  [[nodiscard]] std::size_t RowEnd(const std::vector<Cell>& cells, std::size_t from) {
    const std::int64_t room = std::int64_t{pages_.width()} * 1000;
    std::int64_t width = 0;
    std::size_t end = from;
    for (; end < cells.size(); ++end) {
      width += measure_.Width(plain_, cells[end].text);
      if (width > room && end > from) break;
    }
    return end;
  }

  void SetPlainRow(std::string_view row) {
    MakeRoom();
    const std::size_t size = row.find_last_not_of(' ') + 1;  // 0 if there is nothing else
    const std::size_t start = std::min(row.find_first_not_of(' '), size);
    if (size > 0) WriteRun({row.substr(start, size - start), plain_, XOf(start), false});
    pages_.Advance(pitch_);
  }

  /// One text for each look, and blanks between them are not written.
  void SetRow(const std::vector<Cell>& cells) {
    MakeRoom();
    std::int64_t x = 0;
    for (std::size_t from = 0; from < cells.size();) {
      Face face = plain_;
      if (cells[from].bold) face.style = FontStyleConstants::Bold;
      std::string text;
      std::size_t end = from;
      for (; end < cells.size() && cells[end].LooksLike(cells[from]); ++end)
        text += cells[end].text;
      const bool blank =
          !cells[from].underlined && text.find_first_not_of(' ') == std::string::npos;
      if (!blank) WriteRun({text, face, ToPoints(x), cells[from].underlined});
      x += measure_.Width(face, text);
      from = end;
    }
    pages_.Advance(pitch_);
  }

  struct Piece {
    std::string_view text;
    Face face;
    int x = 0;
    bool underlined = false;
  };

  void WriteRun(const Piece& piece) {
    line_.runs.resize(1);
    Run& run = line_.runs.front();
    run.text = piece.text;
    run.face = piece.face;
    run.x = piece.x;
    run.underlined = piece.underlined;
    pages_.WriteLine(line_, {}, 0, size_);
  }

  void MakeRoom() {
    if (page_is_due_ || !pages_.Fits(pitch_)) pages_.NewPage();
    page_is_due_ = false;
  }

  [[nodiscard]] int XOf(std::size_t column) const {
    return ToPoints(static_cast<std::int64_t>(column) * blank_);
  }

  PageWriter& pages_;
  TextMeasure& measure_;
  int size_;
  int pitch_;
  Face plain_;
  std::int64_t blank_;
  std::size_t columns_;
  bool page_is_due_ = false;
  Line line_;  // keeps its memory
};

}  // namespace

void SetPlainText(std::string_view text, PageWriter& pages, const TextStyle& style,
                  TextMeasure& measure, const LineProgress& progress) {
  PlainTextSetter(pages, style, measure).Set(text, progress);
}

}  // namespace vellumark::tools
