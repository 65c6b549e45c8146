// SPDX-License-Identifier: MIT
//
// PageWriter: puts lines on pages.
//
//     PageWriter pages(output, setup);     // opens the first page
//     if (!pages.Fits(height)) pages.NewPage();
//     pages.WriteLine(line, indent, size);
//     pages.Advance(pitch);
//
// x is measured from the left margin, and the position on the page is kept here. Text ends 20
// points above the bottom margin, because the library writes its footer there. The margins that are
// passed to the library are smaller than those of the user, by the same amount on the left and the
// right, so that text which the library measures wider than it is set is not refused at the right
// edge: a text that was escaped for a classic document, or one whose width was rounded.
//
// A call that the library refuses throws: ObjectNumbersUsedUp if the document is full, otherwise
// Failure.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/failure.h"
#include "tools/line_composer.h"
#include "tools/output_format.h"
#include "tools/picture_platform.h"

namespace vellumark::tools {

/// The document has no object number left for another piece of text.
class ObjectNumbersUsedUp : public Failure {
 public:
  using Failure::Failure;
};

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

/// In points, from the left and down.
struct Point {
  int x = 0;
  int y = 0;
};

/// In points.
struct Margins {
  int left = 64;
  int top = 64;
  int right = 64;
  int bottom = 64;
};

/// Between the top margin as the library has it and the text: it separates a header from it.
inline constexpr int kHeadroom = 8;
inline constexpr int kClassicHeadroom = 48;  ///< for accents that are texts of their own

struct PageSetup {
  Margins margins;
  Rgb page_color{255, 255, 255};
  int headroom = kHeadroom;  ///< at most
  int largest_size = 20;     ///< of any text, in points
};

class PageWriter {
 public:
  /// The document must have been created. Throws Failure if the margins leave too little room.
  PageWriter(OutputFormat& output, const PageSetup& setup);

  /// Width and height of the area for text, in points.
  [[nodiscard]] int width() const { return width_; }
  [[nodiscard]] int height() const { return height_; }
  [[nodiscard]] int pages() const { return pages_; }

  void NewPage();
  /// The position on the page, from its top.
  [[nodiscard]] int y() const { return y_; }
  [[nodiscard]] bool AtTop() const { return y_ == 0; }
  [[nodiscard]] bool Fits(int height) const { return y_ + height <= height_; }
  void Advance(int height) { y_ += height; }

  /// A line whose text is at most `size` points high; smaller text is on the same baseline.
  void WriteLine(const Line& line, const std::vector<std::string>& links, int x, int size);

  /// The same behind a bullet at `x`.
  void WriteTitleLine(const Line& line, const std::vector<std::string>& links, int x, int size,
                      BulletConstants bullet);

  /// A picture with its top at the current position, made smaller if it is larger than `box`.
  /// Returns false if the document refuses the picture at any size; its LastRefusal then says why.
  [[nodiscard]] bool DrawPicture(const std::string& file, EncodingConstants encoding,
                                 const std::string& link, int x, const PictureSize& box);

  /// Names the current position, and makes it an entry of the outline.
  void SetAnchor(const std::string& name);
  void WriteBookmark(const std::string& text, int level);

  /// A line of `thickness` points; y counts down from the current position.
  void DrawLine(Point from, Point to, int thickness, Rgb color);

  /// A filled rectangle by its top left corner; y counts down from the current position.
  void FillRectangle(Point corner, int width, int height, Rgb color);

 private:
  void MoveTo(int x, int below);
  void Prepare(const Run& run, int x, int below);
  void Check(bool done);

  OutputFormat& output_;
  Margins outer_;  // as passed to the library
  Rgb page_color_;
  int inset_x_ = 0;  // from the library's margins to the user's
  int inset_y_ = 0;
  int width_ = 0;
  int height_ = 0;
  int y_ = 0;
  int pages_ = 0;
};

}  // namespace vellumark::tools
