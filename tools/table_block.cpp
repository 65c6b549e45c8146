// SPDX-License-Identifier: MIT
#include "tools/table_block.h"

#include <algorithm>
#include <cmark-gfm-core-extensions.h>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tools/table_columns.h"

namespace vellumark::tools {
namespace {

constexpr int kNarrowestInEms = 5;  // of a column whose words are broken

struct TableRow {
  std::vector<InlineText> cells;
  bool header = false;
};

struct TableText {
  std::vector<TableRow> rows;
  std::vector<char> alignments;  // of each column: 'l', 'c', 'r' or 0

  [[nodiscard]] std::size_t columns() const { return alignments.size(); }
};

TableText ReadTable(cmark_node* node) {
  TableText table;
  const std::size_t columns = cmark_gfm_extensions_get_table_columns(node);
  const std::uint8_t* const alignments = cmark_gfm_extensions_get_table_alignments(node);
  for (std::size_t i = 0; i < columns; ++i) {
    table.alignments.push_back(static_cast<char>(alignments[i]));
  }
  for (cmark_node* row = cmark_node_first_child(node); row != nullptr; row = cmark_node_next(row)) {
    TableRow& read = table.rows.emplace_back();
    read.header = cmark_gfm_extensions_get_table_row_is_header(row) != 0;
    for (cmark_node* cell = cmark_node_first_child(row); cell != nullptr;
         cell = cmark_node_next(cell)) {
      read.cells.push_back(ReadInlines(cell));
    }
    read.cells.resize(columns);
  }
  return table;
}

/// A row whose cells are broken into lines.
struct ComposedRow {
  const TableRow* row = nullptr;
  std::vector<std::vector<Line>> cells;  // of the columns of a group
  std::size_t lines = 0;                 // of the highest cell, at least 1
};

class TableSetter {
 public:
  TableSetter(const TableText& table, const BlockSetting& setting)
      : table_(table),
        setting_(setting),
        pages_(setting.pages),
        flow_(setting.flow),
        room_(setting.flow.width()) {}

  void Set() {
    ChooseSize();
    for (std::size_t first = 0; first < table_.columns(); first += count_) {
      ChooseColumns(first);
      SetGroup();
    }
  }

  /// Of the header and the first row below it.
  [[nodiscard]] int HeightOfStart() {
    if (table_.columns() == 0) return 0;
    ChooseSize();
    ChooseColumns(0);
    int height = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(table_.rows.size(), 2); ++i) {
      height += HeightOf(Compose(table_.rows[i]).lines);
    }
    return height;
  }

 private:
  /// As many columns from `first` on as have room side by side.
  void ChooseColumns(std::size_t first) {
    first_ = first;
    count_ = ColumnsSideBySide(needs_, first, kNarrowestInEms * size_, room_);
    const auto begin = needs_.begin() + static_cast<std::ptrdiff_t>(first);
    widths_ = ChooseWidths({begin, begin + static_cast<std::ptrdiff_t>(count_)}, room_);
  }

  [[nodiscard]] int padding() const { return size_ / 2; }  // left and right of a cell
  [[nodiscard]] int margin() const { return size_ / 4; }   // above and below a row
  [[nodiscard]] int pitch() const { return LinePitch(size_); }
  [[nodiscard]] int HeightOf(std::size_t lines) const {
    return static_cast<int>(lines) * pitch() + 2 * margin();
  }

  [[nodiscard]] std::vector<Word> Words(const InlineText& cell, bool header) const {
    using enum FontStyleConstants;
    return MakeWords(cell, setting_.style.Faces(size_, header ? Bold : Regular), setting_.measure);
  }

  /// The largest size at which no word is broken, or the smallest of all.
  void ChooseSize() {
    int fitting = kSmallestSize;
    int failing = setting_.style.size + 1;
    for (size_ = setting_.style.size; failing - fitting > 1; size_ = (fitting + failing) / 2) {
      Measure();
      (FitsUnbroken(needs_, room_) ? fitting : failing) = size_;
    }
    size_ = fitting;
    Measure();
  }

  void Measure() {
    if (std::exchange(measured_size_, size_) == size_) return;
    const LineComposer composer(setting_.measure, room_, false);
    needs_.assign(table_.columns(), {2 * padding() + 1, 2 * padding() + 1});
    for (const TableRow& row : table_.rows) {
      for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const std::vector<Word> words = Words(row.cells[i], row.header);
        ColumnNeed& need = needs_[i];
        for (const Word& word : words) {
          need.least = std::max(need.least, ToPoints(word.width) + 2 * padding());
        }
        need.natural =
            std::max({need.natural, need.least, composer.WidthOf(words) + 2 * padding()});
      }
    }
  }

  /// The columns from first_ on, with all rows.
  void SetGroup() {
    flow_.BeginBlock(ParagraphSpace(setting_.style.size));
    header_ = {};
    for (const TableRow& row : table_.rows) {
      ComposedRow composed = Compose(row);
      // A header that is too high to be repeated is like other rows.
      if (row.header && HeightOf(composed.lines) <= pages_.height() / 3) {
        header_ = std::move(composed);
      } else {
        SetRow(composed);
      }
    }
    if (!header_written_) SetHeader(0);
    header_written_ = false;
    flow_.EndBlock(ParagraphSpace(setting_.style.size));
  }

  [[nodiscard]] ComposedRow Compose(const TableRow& row) const {
    ComposedRow composed{&row, {}, 1};
    for (std::size_t i = 0; i < count_; ++i) {
      const int width = std::max(widths_[i] - 2 * padding(), 1);
      LineComposer composer(setting_.measure, width, false);
      const InlineText& cell = row.cells[first_ + i];
      composed.cells.push_back(composer.Compose(Words(cell, row.header)));
      composed.lines = std::max(composed.lines, composed.cells.back().size());
    }
    return composed;
  }

  /// On this page if `below`, which follows, fits there too.
  void SetHeader(int below) {
    if (header_.row == nullptr) return;
    const int height = HeightOf(header_.lines);
    flow_.Make(std::min(height + below, pages_.height()));
    flow_.WriteMarker();
    header_written_ = true;
    WriteLines(header_, 0, header_.lines);
    WriteRule(kRuleColor);
  }

  void NextPage() {
    flow_.NewPage();
    SetHeader(0);
  }

  void SetRow(const ComposedRow& row) {
    const int height = HeightOf(row.lines);
    if (!header_written_) SetHeader(height);
    flow_.WriteMarker();
    const int page = pages_.height() - HeightOf(header_.lines);
    if (!pages_.Fits(height) && height <= page) NextPage();
    for (std::size_t done = 0; done < row.lines;) {
      const int free = pages_.height() - pages_.y() - 2 * margin();
      const auto room = static_cast<std::size_t>(std::max(free / pitch(), 0));
      if (room == 0 && !pages_.AtTop()) {
        NextPage();
        continue;
      }
      const std::size_t count = std::clamp<std::size_t>(room, 1, row.lines - done);
      WriteLines(row, done, count);
      done += count;
      WriteRule(kThinRuleColor);
    }
  }

  void WriteLines(const ComposedRow& row, std::size_t from, std::size_t count) {
    pages_.Advance(margin());
    for (std::size_t line = from; line < from + count; ++line) {
      int x = flow_.left();
      for (std::size_t i = 0; i < count_; ++i) {
        const std::vector<Line>& cell = row.cells[i];
        const InlineText& text = row.row->cells[first_ + i];
        if (line < cell.size()) WriteCell(cell[line], text.links, x, i);
        x += widths_[i];
      }
      pages_.Advance(pitch());
    }
    pages_.Advance(margin());
  }

  void WriteCell(const Line& line, const std::vector<std::string>& links, int x,
                 std::size_t column) {
    if (line.runs.empty()) return;
    const int end = WidthOf(line, setting_.measure);
    const int spare = std::max(widths_[column] - 2 * padding() - end, 0);
    const char alignment = table_.alignments[first_ + column];
    if (alignment == 'c') x += spare / 2;
    if (alignment == 'r') x += spare;
    pages_.WriteLine(line, links, x + padding(), size_);
  }

  void WriteRule(Rgb color) {
    int right = flow_.left();
    for (const int width : widths_) right += width;
    pages_.DrawLine({flow_.left(), 0}, {right, 0}, 1, color);
  }

  const TableText& table_;
  const BlockSetting& setting_;
  PageWriter& pages_;
  TextFlow& flow_;
  int room_;
  int size_ = 0;
  int measured_size_ = 0;  // that needs_ are for
  std::vector<ColumnNeed> needs_;
  std::size_t first_ = 0;  // of the group of columns that is set
  std::size_t count_ = 0;
  std::vector<int> widths_;
  ComposedRow header_;
  bool header_written_ = false;
};

}  // namespace

void SetTable(cmark_node* table, const BlockSetting& setting,
              const std::function<void(InlineText&)>& prepare) {
  TableText text = ReadTable(table);
  for (TableRow& row : text.rows) {
    for (InlineText& cell : row.cells) prepare(cell);
  }
  TableSetter(text, setting).Set();
}

int HeightOfTableStart(cmark_node* table, const BlockSetting& setting) {
  return TableSetter(ReadTable(table), setting).HeightOfStart();
}

}  // namespace vellumark::tools
