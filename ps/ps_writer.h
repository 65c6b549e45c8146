// SPDX-License-Identifier: MIT
//
// PsWriter: the language of PostScript, structured by comments (DSC 3.0).
//
//     classic                                  conforming
//
//     %!PS-Adobe-3.0                           %!PS-Adobe-3.0
//     %%BoundingBox: 0 0 595 842               %%BoundingBox: 0 0 595 842
//     ...                                      ...
//     %%Pages: 2                               %%Pages: 2
//     %%EndComments                            %%EndComments
//     90 rotate                                %%BeginProlog ... %%EndProlog        (prolog.h)
//                                              %%BeginSetup ... %%EndSetup          (used_fonts.h)
//     newpath ... stroke                       %%Page: 1 1
//     %%Page: 2 1                              %%BeginPageSetup
//     newpath                                  Vellumark begin
//     72 700 moveto                            /pgsave save def
//     ...                                      90 rotate 0 -595 translate
//     showpage                                 %%EndPageSetup
//     ...                                      72 700 172 700 L
//     %%Trailer                                ...
//     %%EOF                                    %%PageTrailer
//                                              pgsave restore end
//                                              showpage
//                                              ...
//                                              %%Trailer
//                                              %%EOF
//
// What is known only at the end is put in then: the number of pages, the fonts, the language level.
// A classic document turns its first page only, in front of it, and each mark sets its own pen. In
// a conforming one every page turns itself, and a mark sets what is not in force yet.
//
// There are no objects to count, so a document may have any number of marks and pages; links are
// left out, PostScript has none.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "document/glyph_use.h"
#include "document/line_buffer.h"
#include "document/state.h"
#include "document/writer.h"
#include "ps/graphics_state.h"
#include "ps/used_fonts.h"

namespace vellumark::ps {

class PsWriter final : public document::Writer {
 public:
  PsWriter(const document::State& state, document::LineBuffer& lines)
      : state_(state), lines_(lines), glyphs_(state.fonts) {}

  [[nodiscard]] bool KeepsFileWhenCreateFails() const override {
    return !state_.oddities.FailedCreatesForgetTheFile();
  }

  void Mark() noexcept override;
  void BackToMark() noexcept override;

  // document_structure.cpp
  void BeginDocument(const LocalTime& now) override;
  void BeginPage() override;
  void PaintBackground() override;
  void AnnouncePage() override;
  void EndPage() override;
  void HoldPlace() override;
  void BeginHeldPlace(std::size_t index) override;
  void EndHeldPlace() override;
  document::RefusalNote EndDocument() override;

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

  // image.cpp
  void DrawImage(layout::Picture& picture, const document::PicturePlace& place) override;

 private:
  /// How a page lies on its paper: turned counter-clockwise.
  struct Turn {
    int degrees = 0;  ///< 0, 90 or 180
    layout::Points paper_width;
    layout::Points paper_height;
  };

  /// Lines that are put in, or added to, at the end.
  struct LatePlaces {
    std::size_t pages = 0;  ///< "%%Pages:"
    std::size_t language_level = 0;
    std::size_t end_of_comments = 0;
    std::size_t end_of_setup = 0;
  };

  // document_structure.cpp
  void WriteHeaderComments(const LocalTime& now);
  void WriteProperty(std::string_view comment, const document::HostText& text);
  void TurnFirstPage();
  void WriteProlog();
  void WriteSetup();
  void WritePageComment();
  void BeginPageSetup();
  void FillLatePlaces();

  // shapes.cpp
  void MoveTo(document::PagePoint point);
  void RectanglePath(document::PagePoint top_left, layout::Points width, layout::Points height);
  void Fill(const layout::ColorText& color);
  void Stroke();
  void FillAndStroke();
  template <class Path>
  void PaintClosedShape(const Path& path);
  void WritePen();
  void WriteDash();
  void SetColor(const layout::ColorText& color);
  void WriteColor(const layout::ColorText& color, std::string_view rgb, std::string_view gray);
  void ChangeDash(std::string_view dash);

  // text.cpp
  [[nodiscard]] bool HasFont(int resource) const;
  void SetFont(int resource);

  // shaped_text.cpp
  void ShowShaped(std::span<const layout::EncodedRun> runs, document::PagePoint baseline);
  void SetLoadedFont(int number);

  // image.cpp
  void WriteColorSpace(const layout::Picture& picture);
  void WriteImageDictionary(const layout::Picture& picture);
  void WriteTextData(layout::Picture& picture, EncodingConstants encoding);

  const document::State& state_;
  document::LineBuffer& lines_;
  LatePlaces late_;
  Turn turn_;
  std::vector<std::size_t> page_comments_;  // line of each "%%Page:"
  std::vector<std::size_t> held_places_;    // line of each kept place
  std::size_t filled_place_ = 0;            // line of the one being filled, at `filled_from_`
  document::LineBuffer::Mark filled_from_;
  UsedFonts fonts_;
  document::GlyphUse glyphs_;
  int language_level_ = 2;
  GraphicsState graphics_;
  std::string dash_;   // in force, as the host set it; empty for a solid line
  std::string words_;  // room for those of a justified line

  // What it was at the last Mark.
  struct Place {
    std::size_t page_comments = 0;
    std::size_t held_places = 0;
    std::size_t fonts = 0;
    std::size_t glyphs = 0;
    int language_level = 2;
    GraphicsState graphics;
    bool dash_changed = false;  // the dash is in marked_dash_
  };
  Place mark_;
  std::string marked_dash_;
};

}  // namespace vellumark::ps
