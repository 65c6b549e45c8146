// SPDX-License-Identifier: MIT
//
// SplitRun: from a run to the texts that are written for it.
//
// Usually this is one text. A letter with an accent ends a text; the accent is a text of its own
// over the letter, and the rest of the run follows. Readers that join accents and letters need this
// order. A text with escaped characters is wider to the library than on paper, so it is cut if the
// library would refuse it at the right edge.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/classic/code_measure.h"
#include "tools/classic/glyph_codes.h"

namespace vellumark::tools {

/// A run of glyphs that starts at `x`, in points.
struct PlacedGlyphs {
  int x = 0;
  Face face;
  GlyphRun glyphs;
};

struct Stroke {
  int x = 0;
  int y = 0;     ///< of its top, if it is known
  int rise = 0;  ///< in points above the top of the run
  std::string codes;
  bool accent = false;  ///< without a link and a line of its own
};

/// The room for the strokes of a run, in points.
struct StrokeRoom {
  int left = 0;   ///< no stroke starts left of this
  int right = 0;  ///< no stroke ends right of this, as the library measures it
  std::function<int(char)> measured_as;  ///< how often the library counts a code
};

[[nodiscard]] std::vector<Stroke> SplitRun(const PlacedGlyphs& run, const StrokeRoom& room,
                                           CodeMeasure& measure);

}  // namespace vellumark::tools
