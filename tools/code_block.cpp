// SPDX-License-Identifier: MIT
#include "tools/code_block.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr std::size_t kTabStop = 4;
constexpr int kContinuationColumns = 2;  // the indent of the rest of a broken line
constexpr std::size_t kLinesTogether = 2;

/// Breaks the last row, at its last blank if that is in the last third of the row.
void BreakRow(std::vector<GlyphRun>& rows) {
  GlyphRun row = std::move(rows.back());
  const std::size_t size = row.codes.size();
  const std::size_t blank = row.codes.rfind(' ');
  const bool late = blank != std::string::npos && blank + 1 > size * 2 / 3 && blank + 1 < size;
  const std::size_t end = late ? blank + 1 : size;
  GlyphRun continuation;
  continuation.codes.assign(kContinuationColumns, ' ');
  continuation.Append(row.Part(end, std::string::npos));
  rows.back() = row.Part(0, end);
  rows.push_back(std::move(continuation));
}

bool IsEmpty(const GlyphRun& row) { return row.codes.find_first_not_of(' ') == std::string::npos; }

class RowMaker {
 public:
  RowMaker(std::size_t columns, SourcePosition position, const MissingCharacter& missing)
      : columns_(columns), missing_(missing) {
    line_.code = true;
    line_.position = position;
  }

  /// The lines as glyphs, broken at `columns`, without empty lines at the end.
  std::vector<GlyphRun> Make(std::string_view text) {
    while (!text.empty()) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      AddLine(text.substr(0, end));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
    while (!rows_.empty() && IsEmpty(rows_.back())) rows_.pop_back();
    return std::move(rows_);
  }

 private:
  void AddLine(std::string_view text) {
    rows_.emplace_back();
    line_.text = text;
    std::size_t column = 0;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t index = at;
      const char32_t character = NextCharacter(text, at);
      const std::size_t count = character == '\t' ? kTabStop - column % kTabStop : 1;
      for (std::size_t i = 0; i < count; ++i) {
        if (rows_.back().codes.size() >= columns_) BreakRow(rows_);
        if (!AppendCharacter(character, rows_.back())) missing_(line_, index, character);
      }
      column += count;
    }
    line_.position = {line_.position.line + 1, 1};
  }

  std::size_t columns_;
  const MissingCharacter& missing_;
  Span line_;  // that is read
  std::vector<GlyphRun> rows_;
};

/// How many of `left` rows go on a page with room for `room` of them; 0 if none.
std::size_t RowsOnPage(std::size_t left, std::size_t room) {
  if (left <= room) return left;
  const std::size_t next = left - room;
  if (next < kLinesTogether) room = left > kLinesTogether ? left - kLinesTogether : 0;
  return room < kLinesTogether ? 0 : room;
}

}  // namespace

void SetCode(std::string_view text, SourcePosition position, const BlockSetting& setting) {
  PageWriter& pages = setting.pages;
  TextFlow& flow = setting.flow;
  const int size = CodeSize(setting.style.size);
  const int pitch = LinePitch(size);
  const int padding = CodePadding(size);
  const Face face{FontNumberConstants::Courier, FontStyleConstants::Regular,
                  static_cast<std::uint8_t>(size)};
  const int x = flow.left() + padding;
  const std::int64_t room = std::int64_t{flow.width() - 2 * padding} * 1000;
  const auto columns = static_cast<std::size_t>(room / setting.measure.Width(face, " "));
  std::vector<GlyphRun> rows =
      RowMaker(std::max<std::size_t>(columns, 1), position, setting.missing).Make(text);
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
      if (!IsEmpty(rows[done])) pages.WriteLine({{{0, face, rows[done], 0, false}}}, {}, x, size);
      pages.Advance(pitch);
    }
    pages.Advance(padding);
    if (done < rows.size()) flow.NewPage();
  }
  flow.EndBlock(ParagraphSpace(setting.style.size));
}

}  // namespace vellumark::tools
