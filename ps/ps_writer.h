// SPDX-License-Identifier: MIT
//
// PsWriter: the language of PostScript, structured by comments (DSC 3.0).
//
//     %!PS-Adobe-3.0
//     %%BoundingBox: 0 0 595 842       header comments (document_structure.cpp)
//     ...
//     %%Pages: 2                       known, and put in, only at the end
//     %%EndComments
//     90 rotate                        only for a turned document
//     newpath ... stroke               the page's background
//     %%Page: 2 1
//     newpath ... stroke               each mark sets its own pen (shapes.cpp, text.cpp)
//     showpage
//     ...
//     %%Trailer
//     %%EOF
//
// There are no objects to count, so a document may have any number of marks and pages; links are
// left out, PostScript has none.
#pragma once

#include <vector>

#include "document/line_buffer.h"
#include "document/state.h"
#include "document/writer.h"
#include "ps/oddities.h"

namespace vellumark::ps {

class PsWriter final : public document::Writer {
 public:
  PsWriter(const document::State& state, document::LineBuffer& lines)
      : state_(state), lines_(lines) {}

  [[nodiscard]] bool KeepsFileWhenCreateFails() const override {
    return oddities::kKeepsFileWhenCreateFails;
  }

  void Mark() noexcept override { mark_ = page_comments_.size(); }
  void BackToMark() noexcept override { page_comments_.resize(mark_); }

  // document_structure.cpp
  void BeginDocument(const LocalTime& now) override;
  void BeginPage() override;
  void PaintBackground() override;
  void AnnouncePage() override;
  void EndPage() override;
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
  void ShowWords(std::span<const document::PlacedWord>, document::PagePoint) override {}

  // image.cpp
  void DrawImage(const layout::Picture& picture, const document::PicturePlace& place) override;

 private:
  void WriteHeaderComments(const LocalTime& now);
  void WritePageComment();
  void MoveTo(document::PagePoint point);
  void RectanglePath(document::PagePoint top_left, layout::Points width, layout::Points height);
  void Fill(std::string_view color);
  void Stroke();
  void FillAndStroke();

  void WriteColorSpace(const layout::Picture& picture);
  void WriteImageDictionary(const layout::Picture& picture, EncodingConstants encoding);

  const document::State& state_;
  document::LineBuffer& lines_;
  std::size_t pages_comment_ = 0;           // line of "%%Pages:"
  std::vector<std::size_t> page_comments_;  // line of each "%%Page:"
  std::size_t mark_ = 0;                    // how many of them there were
};

}  // namespace vellumark::ps
