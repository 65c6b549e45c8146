// SPDX-License-Identifier: MIT
//
// The sample documents as a host of this library writes them.
#include <vellumark/vellumark.h>

#include "bench/document_writer.h"
#include "bench/fail.h"

namespace vellumark::bench {
namespace {

constexpr const char* kName = "vellumark";

/// Conforming documents, as large and as small as they get.
class UncompressedPdf : public PDF {
 public:
  UncompressedPdf() {
    Conforming(true);
    Compressed(false);
  }
};
class CompressedPdf : public PDF {
 public:
  CompressedPdf() { Conforming(true); }
};
class ConformingPs : public PS {
 public:
  ConformingPs() { Conforming(true); }
};

/// A document that ends the program if it refuses a call.
template <class AnyDocument>
class CheckedDocument {
 public:
  explicit CheckedDocument(const char* path) { Check(doc_.Create(path)); }

  Document* operator->() { return &doc_; }

  void Check(bool done) const {
    if (!done) Fail(kName, doc_.LastRefusal().sentence.c_str());
  }

  void NewPage() { doc_.NewPage(kMargin, kMargin, kMargin, kMargin, 255, 255, 255); }

  void SetFont(FontNumberConstants family) {
    doc_.SetFont(family, kFontHeight, FontStyleConstants::Regular,
                 FontEffectConstants::NoFontEffect);
  }

  void Flush() {
    doc_.Flush();
    Check(doc_.LastRefusal().reason == RefusalReason::None);
  }

 private:
  AnyDocument doc_;
};

template <class AnyDocument>
void WriteText(const SampleText& text, int pages, const char* path) {
  CheckedDocument<AnyDocument> document(path);
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

void WriteTextEmbedded(const SampleText& text, int pages, const char* path) {
  CheckedDocument<CompressedPdf> document(path);
  const FontNumberConstants font = document->LoadFont(kFontFile);
  document.Check(font != FontNumberConstants{});
  for (int page = 0; page < pages; ++page) {
    document.NewPage();
    for (int i = 0; i < kLinesPerPage; ++i) {
      const Shade shade = ShadeOf(i);
      document.SetFont(font);
      document->SetColor(shade.red, shade.green, shade.blue);
      document.Check(
          document->WriteText(text.Line(page * kLinesPerPage + i), true, kLineStep - kFontHeight));
    }
  }
  document.Flush();
}

template <class AnyDocument>
void DrawShapes(CheckedDocument<AnyDocument>& document, int number) {
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

template <class AnyDocument>
void WriteShapes(int of_each_kind, const char* path) {
  CheckedDocument<AnyDocument> document(path);
  document->SetFillStyle(true);
  for (int i = 0; i < of_each_kind; ++i) {
    if (i % kShapesPerPage == 0) document.NewPage();
    DrawShapes(document, i % kShapesPerPage);
  }
  document.Flush();
}

template <class AnyDocument>
void WriteParagraphs(const SampleText& text, int paragraphs, bool justified, const char* path) {
  CheckedDocument<AnyDocument> document(path);
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

template <class AnyDocument>
void WriteWrapped(const SampleText& text, int paragraphs, const char* path) {
  WriteParagraphs<AnyDocument>(text, paragraphs, false, path);
}

template <class AnyDocument>
void WriteJustified(const SampleText& text, int paragraphs, const char* path) {
  WriteParagraphs<AnyDocument>(text, paragraphs, true, path);
}

template <class AnyDocument>
void MeasureLines(const SampleText& text, int lines, const char* path) {
  CheckedDocument<AnyDocument> document(path);
  document.SetFont(FontNumberConstants::Times);
  for (int i = 0; i < lines; ++i) document.Check(document->TextWidth(text.Line(i)) > 0);
}

}  // namespace

const DocumentWriter& Vellumark() {
  static constexpr DocumentWriter kWriter = {kName,
                                             WriteText<PDF>,
                                             WriteShapes<PDF>,
                                             WriteWrapped<PDF>,
                                             WriteJustified<PDF>,
                                             MeasureLines<PDF>};
  return kWriter;
}

const DocumentWriter& VellumarkUncompressed() {
  using Pdf = UncompressedPdf;
  static constexpr DocumentWriter kWriter = {kName,
                                             WriteText<Pdf>,
                                             WriteShapes<Pdf>,
                                             WriteWrapped<Pdf>,
                                             WriteJustified<Pdf>,
                                             MeasureLines<Pdf>};
  return kWriter;
}

const DocumentWriter& VellumarkCompressed() {
  using Pdf = CompressedPdf;
  static constexpr DocumentWriter kWriter = {kName,
                                             WriteText<Pdf>,
                                             WriteShapes<Pdf>,
                                             WriteWrapped<Pdf>,
                                             WriteJustified<Pdf>,
                                             MeasureLines<Pdf>};
  return kWriter;
}

const DocumentWriter& VellumarkConformingPs() {
  using Ps = ConformingPs;
  static constexpr DocumentWriter kWriter = {
      kName,           WriteText<Ps>, WriteShapes<Ps>, WriteWrapped<Ps>, WriteJustified<Ps>,
      MeasureLines<Ps>};
  return kWriter;
}

const DocumentWriter& VellumarkEmbedded() {
  static constexpr DocumentWriter kWriter = {kName,   WriteTextEmbedded, nullptr,
                                             nullptr, nullptr,           nullptr};
  return kWriter;
}

const DocumentWriter& VellumarkPs() {
  static constexpr DocumentWriter kWriter = {
      kName,           WriteText<PS>, WriteShapes<PS>, WriteWrapped<PS>, WriteJustified<PS>,
      MeasureLines<PS>};
  return kWriter;
}

}  // namespace vellumark::bench
