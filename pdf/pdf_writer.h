// SPDX-License-Identifier: MIT
//
// PdfWriter: the language of PDF.
//
// A file is a header, numbered objects, the cross-reference table and a trailer:
//
//     %PDF-1.2                      header (file_structure.cpp)
//     1 0 obj << /Title ... >>      information dictionary
//     n 0 obj << /Length ... >> stream ... endstream endobj
//                                   marks on a page (content_stream.h, shapes.cpp, text.cpp)
//     i 0 obj << /Subtype /Image ... >> stream ... (image.cpp)
//     p 0 obj << /Type /Page ... >> endobj (pages.cpp)
//     ...                           page tree and resources with the fonts (fonts.cpp), numbered
//                                   early, written last
//     c 0 obj << /Type /Catalog ... >> endobj
//     xref ... trailer ... startxref ... %%EOF
//
// In a conforming document a page's marks are collected and written as one stream when the page
// ends. In a classic one every mark is a stream of its own, written at once, and object numbers
// have 16 bits: a mark takes two (the stream and its length), a picture four and its palette two
// more, a link one, and four are always kept back: the footer's two, the page and the catalog.
// RoomFor refuses what would take those.
#pragma once

#include <array>
#include <map>
#include <numbers>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/font_resource.h"
#include "document/glyph_use.h"
#include "document/line_buffer.h"
#include "document/picture_data.h"
#include "document/state.h"
#include "document/writer.h"
#include "pdf/graphics_state.h"
#include "pdf/object_table.h"

namespace vellumark::pdf {

class PdfWriter final : public document::Writer {
 public:
  /// `highest_number` is that of an object of a conforming document; tests choose a low one.
  PdfWriter(const document::State& state, document::LineBuffer& lines,
            int highest_number = ObjectTable::kHighest)
      : state_(state), lines_(lines), glyphs_(state.fonts), highest_number_(highest_number) {}

  /// The properties that only PDF has.
  struct Properties {
    document::HostText keywords;
    document::HostText producer;
    document::HostText subject;
  };
  Properties properties;

  [[nodiscard]] bool HasSoftMasks() const override { return !state_.oddities.EachMarkIsAStream(); }
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
  void HoldPlace() override;
  void BeginHeldPlace(std::size_t index) override;
  void EndHeldPlace() override;

  // navigation.cpp
  void WriteBookmark(std::string_view text, int level, document::PagePoint place) override;
  void SetAnchor(std::string_view name, document::PagePoint place) override;
  [[nodiscard]] std::string MissingAnchor() const override;

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
  void ShowText(std::span<const layout::EncodedRun> runs, document::PagePoint baseline) override;
  void ShowWords(std::span<const document::PlacedWord> words,
                 document::PagePoint baseline) override;
  void WriteLink(std::string_view uri, document::PagePoint top_left,
                 document::PagePoint bottom_right) override;

  // image.cpp
  void DrawImage(layout::Picture& picture, const document::PicturePlace& place) override;

 private:
  /// Tells pictures apart.
  using ImageKey = std::array<std::uint8_t, 16>;

  /// What a mark does with the graphics state of its stream, if it has one of its own.
  enum class MarkKind { Shape, Text, Image };

  /// A content stream that is written when all pages are known.
  struct HeldPlace {
    int number = 0;
    bool state_saved = false;  ///< a "q" of the page is open there
  };

  /// A place on a page, counted from 0.
  struct Destination {
    std::size_t page = 0;
    document::PagePoint place;
  };

  struct Bookmark {
    std::string text;
    int level = 1;
    Destination destination;
  };

  /// Everything that counts objects.
  struct Objects {
    ObjectTable table;
    std::vector<int> pages;
    std::vector<int> page_nodes{0};    // nodes of the page tree that have pages
    std::vector<int> contents;         // content streams of the document
    std::vector<int> annotations;      // links of the document
    std::size_t page_contents = 0;     // the first content stream since the last BeginPage
    std::size_t page_annotations = 0;  // likewise for links
    int info = 0;
    int resources = 0;
    std::vector<int> fonts;            // of a classic document
    std::vector<int> images;           // of the whole document
    std::vector<ImageKey> image_keys;  // likewise, of a conforming document
    bool state_saved = false;          // a "q" is open
    std::vector<HeldPlace> held_places;
    std::vector<Bookmark> bookmarks;
    std::array<bool, document::kFontResources> fonts_used{};
    bool codes_beyond_ascii = false;  // in a text of a conforming document
  };

  /// How far the lists of Objects reached.
  struct Place {
    ObjectTable::Mark table;
    std::size_t pages = 0;
    std::size_t page_nodes = 0;
    std::size_t contents = 0;
    std::size_t page_contents = 0;
    std::size_t annotations = 0;
    std::size_t page_annotations = 0;
    std::size_t images = 0;
    std::size_t held_places = 0;
    std::size_t bookmarks = 0;
    bool state_saved = false;
    document::LineBuffer::Mark page;
    bool in_text = false;
    layout::Points text_x;
    layout::Points text_y;
    int least_version = 2;
    std::size_t glyphs = 0;
    bool page_ended = false;  // the page's marks are in marked_page_
  };

  // file_structure.cpp
  void WriteInformation(const LocalTime& now);
  void WriteProperty(std::string_view key, const document::HostText& text);
  void WriteResources();
  int WriteCatalog(int page_tree, int outlines);
  void WriteCrossReferences();
  void WriteTrailer(int catalog, std::int64_t cross_references);
  void WriteVersion();

  // fonts.cpp
  void WriteClassicFonts();
  [[nodiscard]] std::string WriteUsedFonts();
  int WriteEncoding(layout::TextEncoding encoding);
  void WriteWidths(int font, layout::TextEncoding encoding, int descriptor);
  void WriteDescriptor(int font);

  // embedded_fonts.cpp
  void WriteEmbeddedFonts(std::string& named);
  int WriteEmbeddedFont(const document::GlyphUse::Font& font);
  int WriteFontProgram(const layout::FontProgram& program, layout::Outlines outlines);

  // pages.cpp
  /// Of deflate. Level 6 gains a hundredth over 5 and takes a fifth more time. The numbers between
  /// the words of justified lines hardly repeat: level 3 costs a twentieth there and takes half the
  /// time.
  static constexpr std::uint8_t kLevel = 5;
  static constexpr std::uint8_t kLevelOfMovedWords = 3;
  static constexpr std::uint8_t kLevelOfFonts = 9;  // written once
  int WriteStream(std::string_view data, std::uint8_t level = kLevel,
                  std::string_view entries = {});
  void WriteStreamAt(int number, std::string_view data, std::uint8_t level = kLevel,
                     std::string_view entries = {});
  void WritePageContent();
  int WritePageTree();

  // navigation.cpp
  [[nodiscard]] std::string DestinationText(const Destination& destination) const;
  int WriteOutlines();
  void WriteAnchors();

  // image.cpp
  std::size_t ImageOf(layout::Picture& picture, EncodingConstants encoding);
  void WriteImageDictionary(int image, const layout::Picture& picture,
                            const document::PictureData& data, int soft_mask = 0);
  int WriteSoftMask(const layout::Picture& picture);
  struct RowOfSamples {
    int colors = 1;
    int bits = 8;
    int columns = 0;
  };
  void WriteFilter(const document::PictureData& data, const RowOfSamples& row);
  void WriteJpegColors(const layout::JpegHeader& jpeg);
  int BeginStreamObject(EncodingConstants encoding);
  void WriteEncodedStream(document::PictureData&& data);

  // content_stream.cpp
  int BeginObject();
  void BeginReservedObject(int number);
  int BeginStreamObject();
  void WriteLengthObject(std::int64_t length);
  [[nodiscard]] std::int64_t Position() const;
  void SetStateSaved(bool wanted);
  document::LineBuffer& Content();
  std::int64_t BeginMark(MarkKind kind);
  void EndMark(MarkKind kind, std::int64_t start);
  template <class Operators>
  void WriteMark(MarkKind kind, const Operators& operators);
  void BeginText();
  void EndText();

  // shapes.cpp
  /// How far the control points of a quarter lie from its ends, for a radius of 1.
  struct QuarterControl {
    double of_start = 0;
    double of_end = 0;
  };
  static constexpr double kRound = 4 * (std::numbers::sqrt2 - 1) / 3;
  static constexpr QuarterControl kQuarterControl = {kRound, kRound};

  void DrawQuarters(document::PagePoint center, layout::Points rx, layout::Points ry,
                    QuarterControl control);
  [[nodiscard]] double Placed(double value) const;
  struct PaintOperators {
    char fill_and_stroke = 'B';
    char stroke = 'S';
  };
  static constexpr PaintOperators kOpenPath = {'B', 'S'};
  static constexpr PaintOperators kClosePath = {'b', 's'};  // and closes it first
  template <class Path>
  void PaintClosedShape(PaintOperators paint, const Path& path);
  void WritePen();
  void SetStrokeColor();
  void SetFillColor(const layout::ColorText& color);
  /// The letters of RG and G, or of rg and g.
  struct ColorOperators {
    char red = 'R';
    char gray = 'G';
  };
  void WriteColor(const layout::ColorText& color, ColorOperators operators);

  // text.cpp
  void SetTextFont(int resource);
  struct TextMove {
    layout::Points x;
    layout::Points y;
  };
  std::optional<TextMove> MoveText(document::PagePoint baseline);

  // shaped_text.cpp
  void ShowShaped(std::span<const layout::EncodedRun> runs, document::PagePoint baseline);
  void SetLoadedFont(int number);

  const document::State& state_;
  document::LineBuffer& lines_;
  Objects objects_;
  std::size_t header_ = 0;                         // line of the header
  int least_version_ = 2;                          // of PDF 1.x, which the document needs
  std::map<ImageKey, std::size_t> image_indices_;  // of a conforming document

  // The marks of the open page of a conforming document, and what they have in force.
  document::LineBuffer page_{document::LineEnd::Lf};
  GraphicsState graphics_;
  std::string joined_;  // the page's marks in one piece; kept for its storage
  std::string array_;   // the words of a line; likewise
  document::GlyphUse glyphs_;
  int highest_number_;

  // Named places, and the names that links lead to.
  std::map<std::string, Destination, std::less<>> anchors_;
  std::map<std::string, Destination, std::less<>> linked_names_;  // with the last link's own place

  HeldPlace* filled_place_ = nullptr;  // the kept place that is being filled
  std::int64_t filled_from_ = 0;       // where its stream begins, in a classic document

  Place mark_;
  document::LineBuffer marked_page_{document::LineEnd::Lf};  // a page that ended since the mark
};

}  // namespace vellumark::pdf
