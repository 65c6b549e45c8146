// SPDX-License-Identifier: MIT
//
// DocumentWriter: one library's way of writing the sample documents.
//
// Each function writes one whole document to the file at `path` in the way that the manual of the
// library suggests: nothing is kept from one document to the next, handles are fetched once per
// document, and compression is the default of the library. Every call is checked, and a refused one
// ends the program (fail.h), so that all libraries do the work. Pages are A4, in two of the
// standard fonts at 10 points.
//
// vellumark_pages.cpp, haru_pages.cpp and cairo_pages.cpp each define one library's, the first and
// the last for PDF and for PostScript. They use no parts of the C++ library that would have to be
// loaded (writer_alone.cpp).
#pragma once

#include <cstdint>

#include "bench/sample_text.h"

namespace vellumark::bench {

struct DocumentWriter {
  const char* name;

  /// Pages of kLinesPerPage lines. Each line sets font and color, and its width is measured.
  void (*write_text)(const SampleText& text, int pages, const char* path);

  /// As many rectangles as circles, filled and stroked. Each sets both colors and the line width.
  void (*write_shapes)(int of_each_kind, const char* path);

  /// Paragraphs of 200 words, wrapped by the library.
  void (*write_wrapped)(const SampleText& text, int paragraphs, const char* path);

  /// The same with every line but the last stretched to the full width; null if the library cannot
  /// do that.
  void (*write_justified)(const SampleText& text, int paragraphs, const char* path);

  /// Widths of as many lines, in one document that is not written; null if the library has no call
  /// that measures a text.
  void (*measure_lines)(const SampleText& text, int lines, const char* path);
};

const DocumentWriter& Vellumark();
const DocumentWriter& VellumarkUncompressed();  // conforming output
const DocumentWriter& VellumarkCompressed();    // likewise
const DocumentWriter& Haru();
const DocumentWriter& HaruCompressed();
const DocumentWriter& Cairo();
const DocumentWriter& VellumarkPs();
const DocumentWriter& VellumarkConformingPs();
const DocumentWriter& CairoPs();

/// Texts in a font that is embedded, kFontFile; only write_text.
const DocumentWriter& VellumarkEmbedded();
const DocumentWriter& CairoEmbedded();

/// DejaVu Sans (fonts-dejavu-core), by its file and by its name.
inline constexpr const char* kFontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
inline constexpr const char* kFontName = "DejaVu Sans";

// --- The measures of the pages, in points; y grows downwards from the top margin. ----------------

constexpr int kPageWidth = 595;
constexpr int kPageHeight = 842;
constexpr int kMargin = 50;
constexpr int kFontHeight = 10;

constexpr int kLinesPerPage = 40;
constexpr int kLineStep = 17;

constexpr int kParagraphsPerPage = 4;
constexpr int kParagraphStep = 180;  // room for 200 words
constexpr int kParagraphLineStep = 12;

constexpr int kShapesPerPage = 70;  // of each kind
constexpr int kShapeSize = 40;      // side of a rectangle, diameter of a circle

struct ShapePlace {
  int left;
  int rectangle_top;
  int circle_top;
};

/// Ten shapes of each kind side by side, seven rows of each.
constexpr ShapePlace PlaceOfShape(int number) {
  const int row_top = number / 10 * 100;
  return {number % 10 * 49, row_top, row_top + kShapeSize + 10};
}

constexpr int LineWidthOfShape(int number) { return 1 + number % 3; }

struct Shade {
  std::uint8_t red;
  std::uint8_t green;
  std::uint8_t blue;
};

/// The color of line or shape `number`; its neighbors have another.
constexpr Shade ShadeOf(int number) {
  return {static_cast<std::uint8_t>(number * 37), static_cast<std::uint8_t>(number * 59),
          static_cast<std::uint8_t>(number * 83)};
}

}  // namespace vellumark::bench
