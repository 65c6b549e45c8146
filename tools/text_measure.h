// SPDX-License-Identifier: MIT
//
// How wide glyphs are, learnt from the library.
//
// A host sees no width table, but it sees how far a text moves the position. GlyphMeasure writes
// each glyph once into a scratch document that nobody reads, often enough in a row and at such a
// size that the move in whole points is the glyph's width in 1/1000 em exactly; sums of these
// widths are then as exact as the library's own.
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

/// 1/1000 point to whole points, to the nearest.
[[nodiscard]] constexpr int ToPoints(std::int64_t width) {
  return static_cast<int>((width + 500) / 1000);
}

class GlyphMeasure {
 public:
  GlyphMeasure();

  /// Of one glyph, in 1/1000 em.
  [[nodiscard]] int GlyphWidth(const Face& face, char code);

  /// Of codes in a row, in 1/1000 point.
  [[nodiscard]] std::int64_t Width(const Face& face, std::string_view codes);

 private:
  using Table = std::array<std::int16_t, 256>;  // negative: not measured yet

  [[nodiscard]] int Learn(const Face& face, char code);

  PDF scratch_;
  std::array<Table, 12> tables_{};  // three families of four styles
};

}  // namespace vellumark::tools
