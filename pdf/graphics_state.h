// SPDX-License-Identifier: MIT
//
// GraphicsState: what a content stream has in force, so that only what changes is written.
//
//     if (Changes(graphics_.thickness, state_.thickness)) lines.Append(state_.thickness, " w");
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "document/changes.h"
#include "layout/color_text.h"
#include "layout/points.h"

namespace vellumark::pdf {

struct GraphicsState {
  layout::ColorText stroke_color;  ///< empty: not known
  layout::ColorText fill_color;    ///< likewise
  std::string dash;                ///< as the host set it; empty for a solid line
  bool dash_known = true;
  std::uint8_t thickness = 0;  ///< 0: not known
  int font = -1;               ///< number of the font's resource; -1: none
  std::uint8_t font_height = 0;

  // A text object: where its current line starts, in page coordinates.
  bool in_text = false;
  layout::Points text_x;
  layout::Points text_y;
  std::optional<layout::Points> line_step;  ///< what T* moves by; none: not known

  bool words_moved = false;  ///< a justified line is on the page, or glyphs

  /// A page begins with the format's defaults.
  void BeginPage() {
    *this = {};
    stroke_color = layout::FormatColor(0, 0, 0);
    fill_color = stroke_color;
    thickness = 1;
    line_step = 0;
  }

  /// A stream of its own has only a solid line in force; what else it uses, it sets.
  void BeginStream() noexcept {
    stroke_color = {};
    fill_color = {};
    dash.clear();
    dash_known = true;
    thickness = 0;
    font = -1;
  }

  /// After lines were taken back: whatever they set must be set again.
  void Forget() noexcept {
    BeginStream();
    dash_known = false;
    line_step.reset();
  }
};

using document::Changes;

}  // namespace vellumark::pdf
