// SPDX-License-Identifier: MIT
#include "tools/classic/run_strokes.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vellumark::tools {
namespace {

constexpr char kOgonek = '\xCE';

/// The distance of a position from the nearest whole point, in 1/1000 point.
std::int64_t Misplacement(std::int64_t position) {
  return std::abs(position - std::int64_t{ToPoints(position)} * 1000);
}

class RunSplitter {
 public:
  RunSplitter(const PlacedGlyphs& run, const StrokeRoom& room, CodeMeasure& measure)
      : run_(run), room_(room), measure_(measure), pen_(std::int64_t{run.x} * 1000) {}

  std::vector<Stroke> Split() {
    const std::string_view codes = run_.glyphs.codes;
    std::size_t from = 0;
    for (const AccentMark& mark : run_.glyphs.marks) {
      AddText(codes.substr(from, mark.index + 1 - from));
      from = mark.index + 1;
      AddAccent(mark);
    }
    AddText(codes.substr(from));
    return std::move(strokes_);
  }

 private:
  void AddText(std::string_view codes) {
    while (!codes.empty()) {
      const std::size_t count = Acceptable(codes);
      AddStroke(codes.substr(0, count));
      codes.remove_prefix(count);
    }
  }

  void AddStroke(std::string_view codes) {
    const std::size_t blanks = strokes_.empty() ? 0 : BlanksInFront();
    const std::int64_t start = pen_ - static_cast<std::int64_t>(blanks) * Blank();
    strokes_.push_back({ToPoints(start), 0, 0, std::string(blanks, ' ').append(codes), false});
    pen_ += measure_.CodesWidth(run_.face, codes);
  }

  void AddAccent(const AccentMark& mark) {
    const std::string_view accent(&mark.accent, 1);
    const std::string_view letter = std::string_view(run_.glyphs.codes).substr(mark.index, 1);
    const std::int64_t beside =
        measure_.CodesWidth(run_.face, letter) - measure_.CodesWidth(run_.face, accent);
    const std::int64_t start = pen_ - measure_.CodesWidth(run_.face, letter) +
                               (mark.accent == kOgonek ? beside : beside / 2);
    const int rise = mark.raised ? (run_.face.size + 2) / 5 : 0;
    const int x = std::max(ToPoints(start), room_.left);
    strokes_.push_back({x, 0, rise, std::string(accent), true});
  }

  /// How many blanks to put in front of a text that continues a word. Texts start at whole points,
  /// which may be half a point beside the place; behind blanks they start closer to it.
  [[nodiscard]] std::size_t BlanksInFront() {
    std::size_t best = 0;
    for (std::size_t blanks = 1; blanks <= 3; ++blanks) {
      const auto offset = [&](std::size_t n) {
        return pen_ - static_cast<std::int64_t>(n) * Blank();
      };
      if (offset(blanks) < std::int64_t{room_.left} * 1000) break;
      if (Misplacement(offset(blanks)) < Misplacement(offset(best))) best = blanks;
    }
    return best;
  }

  [[nodiscard]] std::int64_t Blank() { return measure_.CodesWidth(run_.face, " "); }

  /// How many codes the library accepts in one text: it counts some of them twice.
  [[nodiscard]] std::size_t Acceptable(std::string_view codes) {
    std::int64_t end = pen_;
    for (std::size_t count = 0; count < codes.size(); ++count) {
      const char code = codes[count];
      end += measure_.CodesWidth(run_.face, {&code, 1}) * room_.measured_as(code);
      if (ToPoints(end) > room_.right) return std::max<std::size_t>(count, 1);
    }
    return codes.size();
  }

  const PlacedGlyphs& run_;
  const StrokeRoom& room_;
  CodeMeasure& measure_;
  std::int64_t pen_;  // in 1/1000 point
  std::vector<Stroke> strokes_;
};

}  // namespace

std::vector<Stroke> SplitRun(const PlacedGlyphs& run, const StrokeRoom& room,
                             CodeMeasure& measure) {
  return RunSplitter(run, room, measure).Split();
}

}  // namespace vellumark::tools
