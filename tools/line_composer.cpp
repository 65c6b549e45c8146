// SPDX-License-Identifier: MIT
#include "tools/line_composer.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tools/utf8_text.h"
#include "tools/word_directions.h"

namespace vellumark::tools {
namespace {

constexpr int kWidestGap = 1;  // in ems, the most that is added to a blank of a justified line

void AppendRun(const Piece& piece, int x, Line& line) {
  line.runs.push_back({x, piece.face, piece.text, piece.link, piece.struck});
}

void AppendRuns(const Word& word, int x, Line& line) {
  std::int64_t offset = 0;
  for (const Piece& piece : word.pieces) {
    AppendRun(piece, x + ToPoints(offset), line);
    offset += piece.width;
  }
}

}  // namespace

int WidthOf(const Line& line, TextMeasure& measure) {
  if (line.runs.empty()) return 0;
  const Run& last = line.runs.back();
  return last.x + ToPoints(measure.Width(last.face, last.text));
}

std::vector<Line> LineComposer::Compose(std::vector<Word> words) {
  for (Word& word : words) {
    const bool ends_line = word.ends_line;
    if (ToPoints(word.width) > width_) {
      AddBroken(std::move(word));
    } else {
      Add(std::move(word));
    }
    if (ends_line) EndLine(false);
  }
  EndLine(false);
  return std::move(lines_);
}

std::vector<Line> LineComposer::ComposeParagraph(std::vector<Word> words) {
  from_right_ = FindDirections(words);
  return Compose(std::move(words));
}

/// The narrower blank of the two words: blanks of code are wide.
std::int64_t LineComposer::Gap(const Word& before, const Word& behind) const {
  return std::min(measure_.Width(before.pieces.back().face, " "),
                  measure_.Width(behind.pieces.front().face, " "));
}

void LineComposer::Add(Word word) {
  if (!draft_.words.empty() && !Takes(word)) EndLine(true);
  Extend(draft_, std::move(word));
}

void LineComposer::Extend(Draft& draft, Word word) const {
  if (!draft.words.empty()) {
    const Word& last = draft.words.back();
    const std::int64_t gap = Gap(last, word);
    draft.exact += gap;
    draft.rounded += ToPoints(last.width + gap);
  }
  draft.exact += word.width;
  draft.words.push_back(std::move(word));
}

int LineComposer::WidthOf(const std::vector<Word>& words) const {
  int widest = 0;
  Draft draft;
  for (const Word& word : words) {
    Extend(draft, word);
    const int rounded = draft.rounded + ToPoints(word.width);
    widest = std::max({widest, rounded, ToPoints(draft.exact)});
    if (word.ends_line) draft = {};
  }
  return widest;
}

bool LineComposer::Takes(const Word& word) const {
  const Word& last = draft_.words.back();
  const std::int64_t gap = Gap(last, word);
  const int rounded = draft_.rounded + ToPoints(last.width + gap) + ToPoints(word.width);
  return rounded <= width_ && ToPoints(draft_.exact + gap + word.width) <= width_;
}

/// A word wider than the line starts a line of its own and is cut into as many lines as it needs.
void LineComposer::AddBroken(Word word) {
  if (!draft_.words.empty()) EndLine(true);
  std::reverse(word.pieces.begin(), word.pieces.end());  // so that taking the first is cheap
  while (ToPoints(word.width) > width_) {
    Add(BreakOff(word));
    EndLine(false);
  }
  std::reverse(word.pieces.begin(), word.pieces.end());
  if (!word.pieces.empty()) Add(std::move(word));
}

/// Takes one line off a word whose pieces are in reverse order.
Word LineComposer::BreakOff(Word& word) const {
  Word head;
  head.against_the_line = word.against_the_line;
  const std::int64_t room = std::int64_t{width_} * 1000;
  while (!word.pieces.empty() && head.width + word.pieces.back().width <= room) {
    head.width += word.pieces.back().width;
    head.pieces.push_back(std::move(word.pieces.back()));
    word.pieces.pop_back();
  }
  word.width -= head.width;
  if (word.pieces.empty()) return head;
  Piece& rest = word.pieces.back();
  std::size_t count = FittingBytes(rest, room - head.width);
  if (count == 0 && head.pieces.empty()) SkipMarkedCharacter(rest.text, count);
  if (count == 0) return head;
  Piece taken{rest.face, rest.text.substr(0, count), rest.link, rest.struck, 0};
  taken.width = measure_.Width(taken.face, taken.text);
  rest.text.erase(0, count);
  rest.width -= taken.width;
  word.width -= taken.width;
  head.width += taken.width;
  head.pieces.push_back(std::move(taken));
  return head;
}

/// The bytes of as many characters as fit. If a slash or another joint of an address is in the
/// second half of them, the break is behind the last such joint.
std::size_t LineComposer::FittingBytes(const Piece& piece, std::int64_t room) const {
  const std::string_view text = piece.text;
  std::size_t count = 0;
  for (std::int64_t used = 0; count < text.size();) {
    std::size_t end = count;
    SkipMarkedCharacter(text, end);
    used += measure_.Width(piece.face, text.substr(count, end - count));
    if (used > room) break;
    count = end;
  }
  if (count == text.size() || count == 0) return count;
  const std::size_t joint = text.find_last_of("/-_.?&=\\", count - 1);
  return joint != std::string::npos && joint + 1 > count / 2 ? joint + 1 : count;
}

void LineComposer::EndLine(bool may_justify) {
  if (draft_.words.empty()) return;
  bool justified = justify_ && may_justify && draft_.words.size() > 1;
  if (justified) {
    const Word& last = draft_.words.back();
    const int spare = width_ - draft_.rounded - ToPoints(last.width);
    const auto gaps = static_cast<int>(draft_.words.size()) - 1;
    justified = spare <= gaps * kWidestGap * last.pieces.back().face.size;
  }
  lines_.push_back(from_right_ ? FromRight(justified) : justified ? Justified() : Natural());
  draft_ = {};
}

Line LineComposer::Natural() const {
  Line line;
  std::int64_t offset = 0;
  const Word* before = nullptr;
  for (const Word& word : draft_.words) {
    if (before != nullptr) offset += Gap(*before, word);
    for (const Piece& piece : word.pieces) {
      Run* const last = line.runs.empty() ? nullptr : &line.runs.back();
      if (last != nullptr && last->face == piece.face && last->link == piece.link &&
          last->struck == piece.struck) {
        if (before != nullptr && &piece == &word.pieces.front()) last->text += ' ';
        last->text += piece.text;
      } else {
        line.runs.push_back({ToPoints(offset), piece.face, piece.text, piece.link, piece.struck});
      }
      offset += piece.width;
    }
    before = &word;
  }
  return line;
}

Line LineComposer::Justified() const {
  const auto gaps = static_cast<int>(draft_.words.size()) - 1;
  const int spare = width_ - draft_.rounded - ToPoints(draft_.words.back().width);
  const int each = spare / gaps;
  int extra = spare % gaps;
  Line line;
  int x = 0;
  const Word* before = nullptr;
  for (const Word& word : draft_.words) {
    if (before != nullptr) {
      x += ToPoints(before->width + Gap(*before, word)) + each + (extra > 0 ? 1 : 0);
      --extra;
    }
    AppendRuns(word, x, line);
    before = &word;
  }
  return line;
}

/// In the order in which they are read, each where it is seen. Words against the line that stand
/// side by side are seen in their own order, and the stop behind the last of them on its left.
Line LineComposer::FromRight(bool justified) const {
  const std::vector<Word>& words = draft_.words;
  const std::int64_t spare = std::int64_t{width_} * 1000 - draft_.exact;
  const auto gaps = static_cast<std::int64_t>(words.size()) - 1;
  std::int64_t right = std::int64_t{width_} * 1000;  // in 1/1000 point; what is left of the line
  const auto take = [&](std::int64_t width) {
    right = std::max<std::int64_t>(right - width, 0);
    return static_cast<int>(right / 1000);
  };
  std::vector<Line> of_words(words.size());
  std::int64_t gap = 0;  // that stands before the next word
  const Word* before = nullptr;
  for (std::size_t begin = 0, end = 0; begin < words.size(); begin = end) {
    end = begin + 1;
    while (words[begin].against_the_line && end < words.size() && words[end].against_the_line)
      ++end;
    Word last = words[end - 1];
    const Piece stop = words[begin].against_the_line ? TakeStop(last) : Piece();
    for (std::size_t i = end; i > begin; --i) {
      const Word& word = i == end ? last : words[i - 1];
      if (before != nullptr) {
        const std::int64_t grown = justified ? spare * (gap + 1) / gaps - spare * gap / gaps : 0;
        take(Gap(*before, words[i - 1]) + grown);
        ++gap;
      }
      before = &words[i - 1];
      if (word.against_the_line) {
        AppendRuns(word, take(word.width), of_words[i - 1]);
      } else {
        for (const Piece& piece : word.pieces) AppendRun(piece, take(piece.width), of_words[i - 1]);
      }
    }
    if (!stop.text.empty()) AppendRun(stop, take(stop.width), of_words[end - 1]);
  }
  Line line;
  for (const Line& word : of_words) {
    line.runs.insert(line.runs.end(), word.runs.begin(), word.runs.end());
  }
  return line;
}

/// Takes the signs that end a sentence or a part of it off a word, unless it has nothing else.
Piece LineComposer::TakeStop(Word& word) const {
  Piece& last = word.pieces.back();
  const std::size_t end = last.text.find_last_not_of(".,;:!?") + 1;  // npos + 1 is 0
  if (end == 0 || end == last.text.size()) return {};
  Piece stop{last.face, last.text.substr(end), last.link, last.struck, 0};
  stop.width = measure_.Width(stop.face, stop.text);
  last.text.resize(end);
  last.width -= stop.width;
  word.width -= stop.width;
  return stop;
}

}  // namespace vellumark::tools
