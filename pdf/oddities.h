// SPDX-License-Identifier: MIT
//
// What this writer does otherwise than a reader of the PDF reference would expect.
//
// Each is a decision of this house: files written over the years look like this, hosts compare them
// byte for byte, and readers cope. The writer asks here wherever it would otherwise do what the
// reference suggests; an output without the oddities changes this file. Each has a test that names
// it (tests/pdf/).
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include <vellumark/run_time_error.h>

#include "document/line_buffer.h"
#include "document/pasted_string.h"
#include "document/state.h"
#include "document/writer.h"

namespace vellumark::pdf::oddities {

/// Positions do not count line ends: every offset, stream length and the startxref value are two
/// bytes short for each line before them. Readers see a damaged cross-reference table and rebuild
/// it, and find a stream's end by its keyword; it stays because the positions are part of the
/// output that hosts compare. Raises run-time error 6 beyond 32 bits.
inline std::int32_t Position(const document::LineBuffer& lines) {
  const std::int64_t line_ends = 2 * static_cast<std::int64_t>(lines.LineCount());
  const std::int64_t position = lines.ByteCount() - line_ends;
  if (position > std::numeric_limits<std::int32_t>::max()) {
    throw RunTimeError(RunTimeError::Overflow);
  }
  return static_cast<std::int32_t>(position);
}

/// The objects that are numbered before they are written (page tree and resources) have no offset:
/// their cross-reference entries are zero. Readers rebuild the table anyway.
inline constexpr bool kReservedObjectsHaveOffsets = false;

/// The encoding stands under /BaseEncoding in the font dictionary itself, where readers look for
/// /Encoding: they do not see it and show the font's own encoding. It stays because text is
/// measured with the glyphs of that encoding (layout/text_width.h).
inline constexpr std::string_view kFontEncoding = "/BaseEncoding /WinAnsiEncoding";

/// /Rotate carries 1 or 0, not degrees. Readers want multiples of 90 and show the page upright; a
/// host that sets Rotated gets the mark in the file and not a turned page.
inline constexpr int RotateValue(bool rotated) noexcept { return rotated ? 1 : 0; }

/// A closed shape that is not to be filled is painted white inside and covers what lies beneath it.
/// It stays because forms are built on it: boxes drawn over lines.
inline std::string_view ShapeFill(const document::State& state) noexcept {
  return state.fill_style ? state.fill_color.view() : std::string_view("1 1 1");
}

/// In a page's text only parentheses are escaped. A host can write octal codes and other escapes of
/// its own; one that must show a backslash doubles it.
inline constexpr bool kBackslashesAreEscaped = false;

/// Property texts and link addresses are pasted as the host gave them, not escaped at all.
[[nodiscard]] inline document::PastedString UnescapedText(std::string_view text) { return {text}; }

/// The control distance of a quarter circle comes from this pi; rounded to whole points, circles
/// are where they have always been.
inline constexpr double kCirclePi = 3.14159;

/// The control points of an ellipse's quarter: its start, and the corner of the bounding box. The
/// circle's control distance is not used, so an ellipse bulges towards the corners and is less
/// round than a circle of the same radius.
struct EllipseControls {
  document::PagePoint first;
  document::PagePoint second;
};
[[nodiscard]] inline EllipseControls ControlsOfQuarter(document::PagePoint start,
                                                       document::PagePoint corner) {
  return {start, corner};
}

/// Only a picture of 24 bits, or with a palette, has a colour space and a depth. At 16 and 32 bits
/// both lines are missing and readers show no picture, or another one (docs/pictures.md). It stays
/// because their samples are no three colours a pixel that a colour space could name.
inline constexpr bool DeclaresColors(int bits_per_pixel) noexcept { return bits_per_pixel == 24; }

}  // namespace vellumark::pdf::oddities
