// SPDX-License-Identifier: MIT
//
// State: what a document knows about itself, whatever language it is written in.
//
// The properties keep their values from one Create to the next; pen, font, margins and picture box
// go back to their defaults with every Create. The position is held in a mixed form: position_x is
// relative to the left margin, position_y is the page height less the y below the top margin.
//
// PageState is the part that a call which is taken back must give back; copying it cannot fail.
#pragma once

#include <iosfwd>
#include <string>

#include <vellumark/enumerations.h>
#include <vellumark/platform.h>

#include "document/oddities.h"
#include "layout/color_text.h"
#include "layout/font.h"
#include "layout/font_collection.h"
#include "layout/paper_sizes.h"
#include "layout/points.h"

namespace vellumark::document {

using layout::Points;

/// A text property: what the host set, and the bytes of the code page that go into the file.
struct HostText {
  std::string utf8;
  std::string bytes;
};

struct Margins {
  Points left;
  Points top;
  Points right;
  Points bottom;
};

struct PageState {
  // The pen; its dash is in State.
  layout::ColorText color;
  layout::ColorText fill_color;
  bool fill_style = false;
  std::uint8_t thickness = 0;
  layout::Font font;

  // The page.
  layout::ColorText page_color;
  Margins margins;
  Points picture_width;  ///< of the box that pictures are fitted into; 0 for none
  Points picture_height;
  bool page_open = false;
  std::int32_t page_number = 0;  ///< of the open page; 0 before the first
  std::int32_t pages_ended = 0;

  // The position.
  Points position_x;
  Points position_y;
  Points line_start_x;  ///< where a carriage return goes back to
};

struct State : PageState {
  // Properties.
  HostText author;
  HostText creator;
  HostText title;
  OrientationConstants orientation = OrientationConstants::Portrait;
  PaperSizeConstants paper_size = PaperSizeConstants::A4;
  bool rotated = false;

  std::string header;  ///< UTF-8, with placeholders (running_heads.cpp); "" for none
  std::string footer;  ///< likewise
  bool conforming = false;
  bool pictures_enlarged = false;  ///< to the picture box
  bool compressed = true;          ///< counts in a conforming PDF only

  Oddities oddities;  ///< of the document being written, from `conforming` at its Create

  layout::FontCollection fonts;  ///< those that the host has loaded; they stay over Create

  HostText dash;       ///< of the pen, without brackets; empty for a solid line
  layout::Paper page;  ///< size after orientation, and the paper's name

  // Where Flush writes the document: a file of the platform, or a stream of the host.
  FileHandle file = FileHandle::Invalid;
  std::ostream* stream = nullptr;

  /// y of the current position below the top margin, as callers count it.
  [[nodiscard]] Points Y() const { return page.height - position_y; }

  [[nodiscard]] Points UsableWidth() const { return page.width - margins.left - margins.right; }
  [[nodiscard]] Points UsableHeight() const { return page.height - margins.top - margins.bottom; }

  /// Page coordinates, from the bottom left corner of the page, of a caller's x and y.
  [[nodiscard]] Points PageX(Points x) const { return x + margins.left; }
  [[nodiscard]] Points PageY(Points y) const { return page.height - y - margins.top; }
};

}  // namespace vellumark::document
