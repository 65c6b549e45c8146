// SPDX-License-Identifier: MIT
//
// PageWriter: lines onto pages.
//
//     PageWriter pages(output, measure, setup);     // opens the first page
//     if (!pages.Fits(height)) pages.NewPage();
//     pages.WriteLine(line, indent, size);
//     pages.Advance(pitch);
//
// x counts from the left margin, the position on the page is kept here, and text ends 20 points
// above the bottom margin, where the library writes its footer. The margins that the library is
// told are smaller than the user's, alike on both sides, because it measures escaped text wider
// than it is and would refuse it at the right edge.
//
// A call that the library refuses throws: ObjectNumbersUsedUp where the document is full, else
// Failure. Text is never lost without a word.
#pragma once

#include <cstdint>

#include "tools/failure.h"
#include "tools/line_composer.h"
#include "tools/output_format.h"
#include "tools/picture_platform.h"
#include "tools/run_strokes.h"

namespace vellumark::tools {

/// The document cannot take another piece of text.
class ObjectNumbersUsedUp : public Failure {
 public:
  using Failure::Failure;
};

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

/// In points.
struct Margins {
  int left = 64;
  int top = 64;
  int right = 64;
  int bottom = 64;
};

struct PageSetup {
  Margins margins;
  Rgb page_color{255, 255, 255};
  int largest_size = 20;  ///< of any text, in points
};

class PageWriter {
 public:
  /// The document must have been created. Throws Failure where the margins leave no room.
  PageWriter(OutputFormat& output, GlyphMeasure& measure, const PageSetup& setup);

  /// Width and height of the area for text.
  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }
  [[nodiscard]] int pages() const { return pages_; }

  void NewPage();
  [[nodiscard]] bool AtTop() const { return y_ == 0; }
  [[nodiscard]] bool Fits(int height) const { return y_ + height <= height_; }
  void Advance(int height) { y_ += height; }

  /// A line whose text is `size` points high at most; smaller text stands on the same baseline.
  void WriteLine(const Line& line, const std::vector<std::string>& links, int x, int size);

  /// The same behind a bullet, which stands at `x`.
  void WriteTitleLine(const Line& line, const std::vector<std::string>& links, int x, int size,
                      BulletConstants bullet);

  /// A picture, smaller where it is larger than `box`, with its top at the present position. False
  /// where the document cannot take this picture, however small; its LastRefusal tells why.
  [[nodiscard]] bool DrawPicture(const std::string& file, EncodingConstants encoding,
                                 const std::string& link, int x, const PictureSize& box);

  /// Across, `below` points under the present position.
  void WriteRule(int x, int below);

 private:
  void WriteRun(const Run& run, std::string_view link, int x, int below);
  void Place(const Stroke& stroke, const Run& run, int below);
  [[nodiscard]] std::vector<Stroke> Split(const Run& run, int x);
  void Check(bool done);

  OutputFormat& output_;
  GlyphMeasure& measure_;
  Margins outer_;  // what the library is told
  Rgb page_color_;
  int inset_x_ = 0;  // from the library's margins to the user's
  int inset_y_ = 0;
  int outer_width_ = 0;
  int width_ = 0;
  int height_ = 0;
  int y_ = 0;
  int pages_ = 0;
};

}  // namespace vellumark::tools
