// SPDX-License-Identifier: MIT
//
// GraphicsState: what a page of a conforming document has in force (document/changes.h).
#pragma once

#include <cstdint>

#include "document/changes.h"
#include "layout/color_text.h"

namespace vellumark::ps {

using document::Changes;

/// Its dash is in PsWriter.
struct GraphicsState {
  bool in_page = false;
  layout::ColorText color = layout::FormatColor(0, 0, 0);
  layout::ColorText fill_color;  ///< empty: not set yet
  std::uint8_t thickness = 1;
  int font = -1;  ///< number of the font's resource; -1: none
  std::uint8_t font_height = 0;
};

}  // namespace vellumark::ps
