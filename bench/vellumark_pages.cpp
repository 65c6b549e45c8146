// SPDX-License-Identifier: MIT
//
// The sample documents as a host of this library writes them.
#include "bench/document_writer.h"
#include "bench/fail.h"
#include "vellumark/vellumark.h"

namespace vellumark::bench {
namespace {

constexpr const char* kName = "vellumark";

/// A document that ends the program at the first refusal.
class CheckedDocument {
 public:
  explicit CheckedDocument(const char* path) { Check(pdf_.Create(path)); }

  PDF* operator->() { return &pdf_; }

  void Check(bool done) const {
    if (!done) Fail(kName, pdf_.LastRefusal().sentence.c_str());
  }

  void NewPage() { pdf_.NewPage(kMargin, kMargin, kMargin, kMargin, 255, 255, 255); }

  void SetFont(FontNumberConstants family) {
    pdf_.SetFont(family, kFontHeight, FontStyleConstants::Regular,
                 FontEffectConstants::NoFontEffect);
  }

  void Flush() {
    pdf_.Flush();
    Check(pdf_.LastRefusal().reason == RefusalReason::None);
  }

 private:
  PDF pdf_;
};

void WriteText(const SampleText& text, int pages, const char* path) {
  CheckedDocument document(path);
  for (int page = 0; page < pages; ++page) {
    document.NewPage();
    for (int i = 0; i < kLinesPerPage; ++i) {
      const Shade shade = ShadeOf(i);
      document.SetFont(i % 2 == 0 ? FontNumberConstants::Helvetica : FontNumberConstants::Times);
      document->SetColor(shade.red, shade.green, shade.blue);
      document.Check(
          document->WriteText(text.Line(page * kLinesPerPage + i), true, kLineStep - kFontHeight));
    }
  }
  document.Flush();
}

void DrawShapes(CheckedDocument& document, int number) {
  const auto [left, rectangle_top, circle_top] = PlaceOfShape(number);
  constexpr int kRadius = kShapeSize / 2;
  const auto set_pen = [&document](int look) {
    const Shade stroke = ShadeOf(look);
    const Shade fill = ShadeOf(look + 1);
    document->SetColor(stroke.red, stroke.green, stroke.blue);
    document->SetFillColor(fill.red, fill.green, fill.blue);
    document->SetThickness(static_cast<std::uint8_t>(LineWidthOfShape(look)));
  };
  const auto points = [](int value) { return static_cast<std::int16_t>(value); };
  set_pen(2 * number);
  document.Check(
      document->DrawRectangle(points(left), points(rectangle_top), kShapeSize, kShapeSize));
  set_pen(2 * number + 1);
  document.Check(
      document->DrawCircle(points(left + kRadius), points(circle_top + kRadius), kRadius));
}

void WriteShapes(const char* path) {
  CheckedDocument document(path);
  document->SetFillStyle(true);
  for (int page = 0; page < kShapePages; ++page) {
    document.NewPage();
    for (int i = 0; i < kShapesPerPage; ++i) DrawShapes(document, i);
  }
  document.Flush();
}

void WriteParagraphs(const SampleText& text, int paragraphs, bool justified, const char* path) {
  CheckedDocument document(path);
  for (int i = 0; i < paragraphs; ++i) {
    const int place = i % kParagraphsPerPage;
    if (place == 0) document.NewPage();
    const Shade shade = ShadeOf(i);
    document.SetFont(FontNumberConstants::Times);
    document->SetColor(shade.red, shade.green, shade.blue);
    document->SetPosition(0, static_cast<std::int16_t>(place * kParagraphStep));
    document.Check(document->WriteMultiText(text.Paragraph(i), kParagraphLineStep - kFontHeight,
                                            AlignmentConstants::NoAlignment, justified));
  }
  document.Flush();
}

void WriteWrapped(const SampleText& text, int paragraphs, const char* path) {
  WriteParagraphs(text, paragraphs, false, path);
}

void WriteJustified(const SampleText& text, int paragraphs, const char* path) {
  WriteParagraphs(text, paragraphs, true, path);
}

}  // namespace

const DocumentWriter& Vellumark() {
  static constexpr DocumentWriter kWriter = {kName, WriteText, WriteShapes, WriteWrapped,
                                             WriteJustified};
  return kWriter;
}

}  // namespace vellumark::bench
