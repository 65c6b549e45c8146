// SPDX-License-Identifier: MIT
//
// A text:
//
//     classic                        conforming: what is not in force yet, and the text
//     /Times-Roman findfont          F8 12 f
//     12 scalefont                   1 0 0 C
//     setfont                        (text)72 700 T
//     newpath                        F22 12 f
//     1 0 0 setrgbcolor              (and its next run)t
//     72 700 moveto
//     (text) show                    a line of moved words
//     closepath                      {72(moved )103(words)}700 J
#include <string>

#include "document/font_resource.h"
#include "document/pasted_string.h"
#include "layout/font.h"
#include "ps/literal_string.h"
#include "ps/ps_writer.h"

namespace vellumark::ps {

using document::FontResource;
using document::PagePoint;
using layout::EncodedRun;

namespace {

void AppendTo(std::string& text, const EscapedString& string) {
  const std::size_t size = text.size();
  text.resize(size + string.MaxSize());
  const char* const end = string.Write(text.data() + size);
  text.resize(static_cast<std::size_t>(end - text.data()));
}

}  // namespace

void PsWriter::ShowText(std::span<const EncodedRun> runs, PagePoint baseline) {
  if (state_.oddities.MarksAreSpelledOut()) {
    lines_.Append('/', layout::FontName(state_.font), " findfont");
    lines_.Append(state_.font.height, " scalefont");
    lines_.Append("setfont");
    lines_.Append("newpath");
    lines_.Append(state_.color.view(), " setrgbcolor");
    MoveTo(baseline);
    lines_.Append(document::PastedString{runs.front().bytes}, " show");
    lines_.Append("closepath");
    return;
  }
  if (runs.empty()) return;
  SetColor(state_.color);
  bool first = true;
  for (const EncodedRun& run : runs) {
    const int resource = FontResource(state_.font, run.encoding);
    if (!HasFont(resource)) SetFont(resource);
    const EscapedString text(run.bytes);
    if (!text.Plain()) fonts_.AddCodes(resource, run.bytes);
    if (first) {
      lines_.Append(text, baseline.x, ' ', baseline.y, " T");
    } else {
      lines_.Append(text, 't');
    }
    first = false;
  }
}

bool PsWriter::HasFont(int resource) const {
  return graphics_.font == resource && graphics_.font_height == state_.font.height;
}

void PsWriter::SetFont(int resource) {
  fonts_.Add(resource);
  lines_.Append('F', resource, ' ', state_.font.height, " f");
  graphics_.font = resource;
  graphics_.font_height = state_.font.height;
}

/// A line in which the font changes is shown in pieces; a piece without a place of its own goes on
/// where the one before it ended.
void PsWriter::ShowWords(std::span<const document::PlacedWord> words, PagePoint baseline) {
  SetColor(state_.color);
  words_.clear();
  for (const document::PlacedWord& word : words) {
    bool first = true;
    for (const EncodedRun& run : word.runs) {
      const int resource = FontResource(state_.font, run.encoding);
      if (!HasFont(resource)) {
        ShowLine(baseline);
        SetFont(resource);
      }
      if (words_.empty()) words_ = '{';
      const EscapedString text(run.bytes);
      if (!text.Plain()) fonts_.AddCodes(resource, run.bytes);
      BreakWords(text.Plain() ? run.bytes.size() + 2 : EscapedString::kLongestLine);
      if (first) words_ += std::to_string((baseline.x + word.x).value());
      AppendTo(words_, text);
      first = false;
    }
  }
  ShowLine(baseline);
}

/// Begins a new line of the file if a place and `size` bytes more would make one too long.
void PsWriter::BreakWords(std::size_t size) {
  constexpr std::size_t kPlace = 6;
  constexpr std::size_t kLongestLine = 240;  // leaves room for what ends the words
  const std::size_t last = words_.rfind('\n');
  const std::size_t column = last == std::string::npos ? words_.size() : words_.size() - last - 1;
  if (column + kPlace + size > kLongestLine) words_ += '\n';
}

void PsWriter::ShowLine(PagePoint baseline) {
  if (!words_.empty()) lines_.Append(words_, '}', baseline.y, " J");
  words_.clear();
}

}  // namespace vellumark::ps
