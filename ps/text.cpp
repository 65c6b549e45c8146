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
#include <charconv>
#include <string>
#include <utility>

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

/// The words of a justified line as the operand of J, put together in a buffer that is kept.
class PlacedList {
 public:
  /// Goes on where the text before ended if it has no `place` of its own.
  void Add(const EscapedString& text, const layout::Points* place, std::string& buffer) {
    if (buffer.size() < used_ + text.MaxSize() + kMostAround) {
      buffer.resize(2 * (used_ + text.MaxSize() + kMostAround));
    }
    char* to = buffer.data() + used_;
    if (used_ == 0) *to++ = '{';
    if (Column(to, buffer) + kPlace + text.LongestLine() > kLongestLine) {
      *to++ = '\n';
      line_ = static_cast<std::size_t>(to - buffer.data());
    }
    if (place != nullptr) to = std::to_chars(to, to + kPlace, place->value()).ptr;
    const char* const start = to;
    to = text.Write(to);
    used_ = static_cast<std::size_t>(to - buffer.data());
    if (!text.Plain()) CountLines({start, static_cast<std::size_t>(to - start)});
  }

  /// What was added since the last call; empty if nothing was.
  [[nodiscard]] std::string_view Taken(std::string& buffer) {
    if (used_ == 0) return {};
    buffer[used_] = '}';
    line_ = 0;
    return {buffer.data(), std::exchange(used_, 0) + 1};
  }

 private:
  static constexpr std::size_t kPlace = 6;
  static constexpr std::size_t kLongestLine = 240;  // leaves room for what ends the words
  static constexpr std::size_t kMostAround = kPlace + 3;

  [[nodiscard]] std::size_t Column(const char* to, const std::string& buffer) const {
    return static_cast<std::size_t>(to - buffer.data()) - line_;
  }

  /// A long string has lines itself.
  void CountLines(std::string_view text) {
    const std::size_t last = text.rfind('\n');
    if (last != std::string_view::npos) line_ = used_ - (text.size() - last - 1);
  }

  std::size_t used_ = 0;
  std::size_t line_ = 0;  // where the last line of the file begins
};

}  // namespace

void PsWriter::ShowText(std::span<const EncodedRun> runs, PagePoint baseline) {
  if (state_.oddities.MarksAreSpelledOut()) {
    lines_.Append('/', layout::FontName(state_.font), " findfont");
    lines_.Append(state_.font.height, " scalefont");
    lines_.Append("setfont");
    lines_.Append("newpath");
    lines_.Append(state_.color, " setrgbcolor");
    MoveTo(baseline);
    lines_.Append(document::PastedString{runs.front().bytes}, " show");
    lines_.Append("closepath");
    return;
  }
  if (runs.empty()) return;
  if (runs.front().shaped != nullptr) {
    ShowShaped(runs, baseline);
    return;
  }
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
  PlacedList list;
  const auto show = [&] {
    const std::string_view placed = list.Taken(words_);
    if (!placed.empty()) lines_.Append(placed, baseline.y, " J");
  };
  for (const document::PlacedWord& word : words) {
    const layout::Points x = baseline.x + word.x;
    const layout::Points* place = &x;
    for (const EncodedRun& run : word.runs) {
      const int resource = FontResource(state_.font, run.encoding);
      if (!HasFont(resource)) {
        show();
        SetFont(resource);
      }
      const EscapedString text(run.bytes);
      if (!text.Plain()) fonts_.AddCodes(resource, run.bytes);
      list.Add(text, place, words_);
      place = nullptr;
    }
  }
  show();
}

}  // namespace vellumark::ps
