// SPDX-License-Identifier: MIT
//
// GlyphMeasure: the widths of glyphs, measured with the library.
//
// The library has no member that returns a width, but WriteText moves the current position by the
// width of the text in whole points. GlyphMeasure writes each glyph into a scratch document,
// repeated and at a size such that this distance is exactly the width of one glyph in 1/1000 em.
// Sums of these widths are as exact as those of the library itself.
//
//     GlyphMeasure measure;
//     const std::int64_t width = measure.Width(face, run.codes);   // in 1/1000 point
//     x + ToPoints(width)
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

#include <vellumark/vellumark.h>

namespace vellumark::tools {

/// A font as text is set in it.
struct Face {
  FontNumberConstants family = FontNumberConstants::Times;  ///< Courier, Helvetica or Times
  FontStyleConstants style = FontStyleConstants::Regular;
  std::uint8_t size = 11;

  friend bool operator==(const Face&, const Face&) = default;
};

/// From 1/1000 point to the nearest whole point.
[[nodiscard]] constexpr int ToPoints(std::int64_t width) {
  return static_cast<int>((width + 500) / 1000);
}

class GlyphMeasure {
 public:
  GlyphMeasure();

  /// The width of one glyph in 1/1000 em.
  [[nodiscard]] int GlyphWidth(const Face& face, char code);

  /// The width of a text in 1/1000 point.
  [[nodiscard]] std::int64_t Width(const Face& face, std::string_view codes);

 private:
  using Table = std::array<std::int16_t, 256>;  // negative: not measured yet

  [[nodiscard]] int Learn(const Face& face, char code);

  PDF scratch_;
  std::array<Table, 12> tables_{};  // three families of four styles
};

}  // namespace vellumark::tools
