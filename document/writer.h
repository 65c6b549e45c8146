// SPDX-License-Identifier: MIT
//
// Writer: what a page-description language must be able to say.
//
// The document model decides what is written, where and when; a Writer only puts it into its own
// language, appending lines to the document's LineBuffer and reading its State. Everything is
// checked before a Writer hears of it, positions are page coordinates (points from the bottom left
// corner of the page), and text is codes of the font.
//
// Order of calls: BeginDocument; then for each page BeginPage, PaintBackground, AnnouncePage, any
// marks, EndPage; then EndDocument. Marks may also come before the first page, and a document
// without pages still ends one.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include <vellumark/enumerations.h>
#include <vellumark/platform.h>

#include "document/refusal_note.h"
#include "layout/encoded_text.h"
#include "layout/picture.h"
#include "layout/points.h"

namespace vellumark::document {

/// A place on the page, from its bottom left corner.
struct PagePoint {
  layout::Points x;
  layout::Points y;
};

/// A word of a justified line.
struct PlacedWord {
  std::span<const layout::EncodedRun> runs;
  layout::Points x;  ///< from the start of the line
};

/// Pieces of output that a call is going to make.
struct Pieces {
  std::int64_t marks = 0;  ///< shapes and text runs
  std::int64_t links = 0;
  std::int64_t pages = 0;  ///< page changes: the end of one page and the start of the next
  std::int64_t images = 0;
  std::int64_t palettes = 0;
  std::int64_t soft_masks = 0;
  std::int64_t bookmarks = 0;
};

/// Where and how a picture is painted.
struct PicturePlace {
  PagePoint top_left;
  layout::Points width;
  layout::Points height;
  EncodingConstants encoding = EncodingConstants::ASCII85;
};

class Writer {
 public:
  Writer() = default;
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  Writer(Writer&&) = delete;
  Writer& operator=(Writer&&) = delete;
  virtual ~Writer() = default;

  /// Whether a Create that cannot create its file leaves the document that was open as it is.
  [[nodiscard]] virtual bool KeepsFileWhenCreateFails() const { return true; }

  /// Whether a picture may have transparency; otherwise the page's color shows through it.
  [[nodiscard]] virtual bool HasSoftMasks() const { return false; }

  /// Refuses pieces if the page and the document could not be finished after them.
  [[nodiscard]] virtual RefusalNote RoomFor(const Pieces& /*pieces*/) const { return {}; }

  /// Remembers this place in the document, one at a time, so that a call that fails half way can be
  /// taken back.
  virtual void Mark() noexcept = 0;

  /// Forgets what was counted since the last Mark; the lines are the caller's to forget.
  virtual void BackToMark() noexcept = 0;

  // The document and its pages.
  virtual void BeginDocument(const LocalTime& now) = 0;
  virtual void BeginPage() = 0;
  virtual void PaintBackground() = 0;
  virtual void AnnouncePage() = 0;
  virtual void EndPage() = 0;

  /// Keeps a place on the page that ends for marks that are made when all pages are known.
  virtual void HoldPlace() = 0;

  /// What is drawn from here on goes to the kept place `index`, counted from 0 since BeginDocument,
  /// up to EndHeldPlace. Only between the last EndPage and EndDocument.
  virtual void BeginHeldPlace(std::size_t index) = 0;
  virtual void EndHeldPlace() = 0;

  /// Goes on past a failing step, and returns the note of the first that failed.
  virtual RefusalNote EndDocument() = 0;

  // Shapes, in the pen of the State.
  virtual void DrawLine(PagePoint from, PagePoint to) = 0;
  virtual void DrawRectangle(PagePoint top_left, layout::Points width, layout::Points height) = 0;
  virtual void DrawCurve(PagePoint start, PagePoint control, PagePoint end) = 0;
  virtual void DrawCircle(PagePoint center, layout::Points radius) = 0;
  virtual void DrawEllipse(PagePoint center, layout::Points rx, layout::Points ry) = 0;

  /// A slice from the center, angles in degrees from the positive x axis, as the caller gave them.
  virtual void DrawArc(PagePoint center, layout::Points radius, float th1, float th2) = 0;

  /// A text in the font and color of the State, as runs of codes one behind the other; `baseline`
  /// is where its first glyph starts.
  virtual void ShowText(std::span<const layout::EncodedRun> runs, PagePoint baseline) = 0;

  /// The words of a justified line. Not called if they stand alone (document/oddities.h).
  virtual void ShowWords(std::span<const PlacedWord> words, PagePoint baseline) = 0;

  /// A picture, its samples encoded with one of the filters. They may be taken out of `picture`.
  virtual void DrawImage(layout::Picture& picture, const PicturePlace& place) = 0;

  /// Makes an area of the page a link. A language without links leaves it out.
  virtual void WriteLink(std::string_view /*uri*/, PagePoint /*top_left*/,
                         PagePoint /*bottom_right*/) {}

  /// An outline entry, `level` 1 or below the one before, that leads to a place on the page that
  /// ends next. `text` is UTF-8. A language without outlines leaves it out.
  virtual void WriteBookmark(std::string_view /*text*/, int /*level*/, PagePoint /*place*/) {}

  /// Names a place on the page that ends next, for links to "#name".
  virtual void SetAnchor(std::string_view /*name*/, PagePoint /*place*/) {}

  /// A name that a link of a conforming document leads to and that no anchor has; "" if all have.
  [[nodiscard]] virtual std::string MissingAnchor() const { return {}; }
};

}  // namespace vellumark::document
