// SPDX-License-Identifier: MIT
//
// From a run to the texts that are written for it.
//
// Mostly that is one. An accented letter ends a text, its accent is one of its own, drawn over the
// letter, and the rest goes on behind it. In this order readers put letter and accent together
// again when text is copied or searched. And a text with escaped characters is wider to the library
// than on paper: where that would take it over the right edge, it is cut.
#pragma once

#include <string>
#include <vector>

#include "tools/line_composer.h"
#include "tools/output_format.h"

namespace vellumark::tools {

struct Stroke {
  int x = 0;
  int rise = 0;  ///< how far above the run's top
  std::string codes;
  bool linked = true;  ///< an accent bears no link of its own
};

/// What a run is cut for.
struct StrokeRoom {
  int left = 0;   ///< a stroke may start here
  int right = 0;  ///< and must have ended here as the library measures it
  const OutputFormat* format = nullptr;
};

[[nodiscard]] std::vector<Stroke> SplitRun(const Run& run, const StrokeRoom& room,
                                           GlyphMeasure& measure);

}  // namespace vellumark::tools
