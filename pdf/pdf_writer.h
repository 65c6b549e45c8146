// SPDX-License-Identifier: MIT
//
// PdfWriter: the language of PDF 1.2 (PDF Reference, version 1.2).
//
// A file is a header, numbered objects, the cross-reference table and a trailer:
//
//     %PDF-1.2                     header (file_structure.cpp)
//     1 0 obj << /Author ... >>    information dictionary
//     3 0 obj ... 16 0 obj         the fourteen fonts
//     n 0 obj << /Length n+1 0 R >> stream ... endstream endobj
//     n+1 0 obj <length> endobj    each mark on a page is such a pair (shapes.cpp, text.cpp)
//     i 0 obj << /Subtype /Image ... >> stream ... (image.cpp)
//     p 0 obj << /Type /Page ... >> endobj
//     17 0 obj ...  2 0 obj ...    resources and page tree, numbered early, written last
//     c 0 obj << /Type /Catalog ... >> endobj
//     xref ... trailer ... startxref ... %%EOF
//
// Every mark is a content stream of its own, listed by its page. A shape's stream opens a graphics
// state ("q") that the next stream closes ("Q"), so that no mark inherits another's pen.
//
// Object numbers are 16-bit. A mark takes two (the stream and its length), a picture four and its
// palette two more, a link one, and four are always kept back: the footer's two, the page and the
// catalog. RoomFor refuses what would take those.
#pragma once

#include <span>
#include <vector>

#include "document/line_buffer.h"
#include "document/state.h"
#include "document/writer.h"
#include "pdf/object_table.h"

namespace vellumark::pdf {

class PdfWriter final : public document::Writer {
 public:
  PdfWriter(const document::State& state, document::LineBuffer& lines)
      : state_(state), lines_(lines) {}

  /// The properties that only PDF has.
  struct Properties {
    document::HostText keywords;
    document::HostText producer;
    document::HostText subject;
  };
  Properties properties;

  [[nodiscard]] document::RefusalNote RoomFor(const document::Pieces& pieces) const override;
  void Mark() noexcept override;
  void BackToMark() noexcept override;

  // file_structure.cpp
  void BeginDocument(const LocalTime& now) override;
  document::RefusalNote EndDocument() override;

  // pages.cpp
  void BeginPage() override;
  void PaintBackground() override;
  void AnnouncePage() override {}
  void EndPage() override;

  // shapes.cpp
  void DrawLine(document::PagePoint from, document::PagePoint to) override;
  void DrawRectangle(document::PagePoint top_left, layout::Points width,
                     layout::Points height) override;
  void DrawCurve(document::PagePoint start, document::PagePoint control,
                 document::PagePoint end) override;
  void DrawCircle(document::PagePoint center, layout::Points radius) override;
  void DrawEllipse(document::PagePoint center, layout::Points rx, layout::Points ry) override;
  void DrawArc(document::PagePoint center, layout::Points radius, float th1, float th2) override;

  // text.cpp
  void ShowText(std::string_view text, document::PagePoint baseline) override;
  void WriteLink(std::string_view uri, document::PagePoint top_left,
                 document::PagePoint bottom_right) override;

  // image.cpp
  void DrawImage(const layout::Picture& picture, const document::PicturePlace& place) override;

 private:
  /// Whether a content stream leaves a graphics state open behind it.
  enum class GraphicsState { Saved, NotSaved };

  /// Everything that counts objects.
  struct Objects {
    ObjectTable table;
    std::vector<int> pages;
    std::vector<int> contents;         // content streams of the document
    std::vector<int> annotations;      // links of the document
    std::size_t page_contents = 0;     // the first content stream since the last BeginPage
    std::size_t page_annotations = 0;  // likewise for links
    int info = 0;
    int page_tree = 0;
    int resources = 0;
    std::vector<int> fonts;
    std::vector<int> images;   // of the whole document
    bool state_saved = false;  // a "q" is open
  };

  // file_structure.cpp
  void WriteInformation(const LocalTime& now);
  void WriteFonts();
  void WriteResources();
  void WritePageTree();
  int WriteCatalog();
  void WriteCrossReferences();
  void WriteTrailer(int catalog, std::int32_t cross_references);

  // image.cpp
  void WriteImageDictionary(int image, const layout::Picture& picture, EncodingConstants encoding);
  int BeginStreamObject(EncodingConstants encoding);
  void WriteEncodedStream(std::span<const std::uint8_t> data, EncodingConstants encoding);

  // content_stream.cpp
  int BeginObject();
  void BeginReservedObject(int number);
  int BeginStreamObject();
  void WriteLengthObject(std::int32_t length);
  void SetStateSaved(GraphicsState wanted);
  template <class Operators>
  void WriteContentStream(GraphicsState wanted, const Operators& operators);
  template <class Path>
  void PaintClosedShape(const Path& path);
  void WritePen();

  /// How far the lists of Objects reached.
  struct Place {
    ObjectTable::Mark table;
    std::size_t pages = 0;
    std::size_t contents = 0;
    std::size_t page_contents = 0;
    std::size_t annotations = 0;
    std::size_t page_annotations = 0;
    std::size_t images = 0;
    bool state_saved = false;
  };

  const document::State& state_;
  document::LineBuffer& lines_;
  Objects objects_;
  Place mark_;
};

}  // namespace vellumark::pdf
