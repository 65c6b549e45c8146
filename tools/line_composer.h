// SPDX-License-Identifier: MIT
//
// LineComposer: breaks words into lines.
//
// A line takes as many words as fit; a word that is wider than the line is broken. In a ragged
// line, neighboring words of the same look become one run, so a plain line is a single piece of
// text. In a justified line, each word is a run of its own: the free width is distributed over the
// gaps in whole points, with one point more in the first gaps if it does not divide evenly, so that
// the last word ends at the right edge. A line is not justified if it is the last one, if the text
// ends it, or if its gaps would grow by more than an em. A text whose first letter runs from right
// to left begins at the right edge, each word a run of its own.
//
//     for (const Line& line : LineComposer(measure, width, true).Compose(words)) ...
//
// Positions are whole points from the left edge of the line. No run ends beyond the width, neither
// by exact measure nor by that of the library, which rounds every run.
#pragma once

#include <string>
#include <vector>

#include "tools/words.h"

namespace vellumark::tools {

struct Run {
  int x = 0;
  Face face;
  std::string text;  ///< UTF-8
  std::size_t link = 0;
  bool struck = false;
  bool underlined = false;
  bool quiet = false;  ///< its link is not colored
};

struct Line {
  std::vector<Run> runs;
};

/// From the left edge to the end of the last run, in points.
[[nodiscard]] int WidthOf(const Line& line, TextMeasure& measure);

class LineComposer {
 public:
  /// `width` is in points, and must be enough for any single character.
  LineComposer(TextMeasure& measure, int width, bool justify)
      : measure_(measure), width_(width), justify_(justify) {}

  [[nodiscard]] std::vector<Line> Compose(std::vector<Word> words);

  /// The same for a paragraph, which begins at the right edge if its first letter asks for it.
  [[nodiscard]] std::vector<Line> ComposeParagraph(std::vector<Word> words);

  /// The width in points at which `words` are not broken into more lines than their text asks for.
  [[nodiscard]] int WidthOf(const std::vector<Word>& words) const;

 private:
  /// The words of a line, and how wide they are side by side.
  struct Draft {
    std::vector<Word> words;
    std::int64_t exact = 0;  // in 1/1000 point, with the gaps, without a blank at the end
    int rounded = 0;         // in points; each word is rounded together with the blank behind it
  };

  void Extend(Draft& draft, Word word) const;
  [[nodiscard]] std::int64_t Gap(const Word& before, const Word& behind) const;
  [[nodiscard]] bool Takes(const Word& word) const;
  [[nodiscard]] Word BreakOff(Word& word) const;
  [[nodiscard]] std::size_t FittingBytes(const Piece& piece, std::int64_t room) const;
  void Add(Word word);
  void AddBroken(Word word);
  void EndLine(bool may_justify);
  [[nodiscard]] Line Natural() const;
  [[nodiscard]] Line Justified() const;
  [[nodiscard]] Line FromRight(bool justified) const;
  [[nodiscard]] Piece TakeStop(Word& word) const;

  TextMeasure& measure_;
  int width_;
  bool justify_;
  bool from_right_ = false;
  Draft draft_;
  std::vector<Line> lines_;
};

}  // namespace vellumark::tools
