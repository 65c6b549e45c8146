// SPDX-License-Identifier: MIT
//
// The sample documents with libharu. Its y coordinates start at the bottom of the page. It writes
// no footer and no background, so a little less on each page.
#include <hpdf.h>

#include "bench/document_writer.h"
#include "bench/fail.h"

namespace vellumark::bench {
namespace {

constexpr const char* kName = "libharu";

HPDF_REAL Real(int value) { return static_cast<HPDF_REAL>(value); }

/// The y coordinate of a distance below the top margin.
HPDF_REAL Below(int y) { return Real(kPageHeight - kMargin - y); }

HPDF_REAL Fraction(std::uint8_t byte) { return Real(byte) / 255; }

void SetFill(HPDF_Page page, Shade shade) {
  HPDF_Page_SetRGBFill(page, Fraction(shade.red), Fraction(shade.green), Fraction(shade.blue));
}

void SetStroke(HPDF_Page page, Shade shade) {
  HPDF_Page_SetRGBStroke(page, Fraction(shade.red), Fraction(shade.green), Fraction(shade.blue));
}

enum class Streams { Plain, Compressed };

class HaruDocument {
 public:
  explicit HaruDocument(Streams streams) : pdf_(HPDF_New(OnError, nullptr)) {
    if (pdf_ == nullptr) Fail(kName, "no document");
    if (streams == Streams::Compressed) HPDF_SetCompressionMode(pdf_, HPDF_COMP_ALL);
  }
  HaruDocument(const HaruDocument&) = delete;
  HaruDocument& operator=(const HaruDocument&) = delete;
  HaruDocument(HaruDocument&&) = delete;
  HaruDocument& operator=(HaruDocument&&) = delete;
  ~HaruDocument() { HPDF_Free(pdf_); }

  HPDF_Font Font(const char* name) { return HPDF_GetFont(pdf_, name, nullptr); }

  HPDF_Page NewPage() {
    HPDF_Page page = HPDF_AddPage(pdf_);
    HPDF_Page_SetWidth(page, kPageWidth);
    HPDF_Page_SetHeight(page, kPageHeight);
    return page;
  }

  void Save(const char* path) { HPDF_SaveToFile(pdf_, path); }

 private:
  static void OnError(HPDF_STATUS /*error*/, HPDF_STATUS /*detail*/, void* /*user_data*/) {
    Fail(kName, "a call was refused");
  }

  HPDF_Doc pdf_;
};

template <Streams kStreams>
void WriteText(const SampleText& text, int pages, const char* path) {
  HaruDocument document(kStreams);
  HPDF_Font helvetica = document.Font("Helvetica");
  HPDF_Font times = document.Font("Times-Roman");
  for (int number = 0; number < pages; ++number) {
    HPDF_Page page = document.NewPage();
    for (int i = 0; i < kLinesPerPage; ++i) {
      const char* const line = text.Line(number * kLinesPerPage + i).data();
      HPDF_Page_SetFontAndSize(page, i % 2 == 0 ? helvetica : times, kFontHeight);
      SetFill(page, ShadeOf(i));
      const HPDF_REAL width = HPDF_Page_TextWidth(page, line);
      if (width > Real(kPageWidth - 2 * kMargin)) Fail(kName, "text is too wide");
      HPDF_Page_BeginText(page);
      HPDF_Page_TextOut(page, kMargin, Below(i * kLineStep + kFontHeight), line);
      HPDF_Page_EndText(page);
    }
  }
  document.Save(path);
}

void SetPen(HPDF_Page page, int look) {
  SetStroke(page, ShadeOf(look));
  SetFill(page, ShadeOf(look + 1));
  HPDF_Page_SetLineWidth(page, Real(LineWidthOfShape(look)));
}

void DrawShapes(HPDF_Page page, int number) {
  const auto [left, rectangle_top, circle_top] = PlaceOfShape(number);
  constexpr int kRadius = kShapeSize / 2;
  SetPen(page, 2 * number);
  HPDF_Page_Rectangle(page, Real(kMargin + left), Below(rectangle_top + kShapeSize), kShapeSize,
                      kShapeSize);
  HPDF_Page_FillStroke(page);
  SetPen(page, 2 * number + 1);
  HPDF_Page_Circle(page, Real(kMargin + left + kRadius), Below(circle_top + kRadius), kRadius);
  HPDF_Page_FillStroke(page);
}

template <Streams kStreams>
void WriteShapes(int of_each_kind, const char* path) {
  HaruDocument document(kStreams);
  HPDF_Page page = nullptr;
  for (int i = 0; i < of_each_kind; ++i) {
    if (i % kShapesPerPage == 0) page = document.NewPage();
    DrawShapes(page, i % kShapesPerPage);
  }
  document.Save(path);
}

void WriteParagraph(HPDF_Page page, std::string_view text, int top, HPDF_TextAlignment alignment) {
  HPDF_UINT length = 0;
  HPDF_Page_BeginText(page);
  HPDF_Page_TextRect(page, kMargin, Below(top), kPageWidth - kMargin, Below(top + kParagraphStep),
                     text.data(), alignment, &length);
  HPDF_Page_EndText(page);
  if (length != text.size()) Fail(kName, "a paragraph does not fit");
}

template <Streams kStreams>
void WriteParagraphs(const SampleText& text, int paragraphs, HPDF_TextAlignment alignment,
                     const char* path) {
  HaruDocument document(kStreams);
  HPDF_Font times = document.Font("Times-Roman");
  HPDF_Page page = nullptr;
  for (int i = 0; i < paragraphs; ++i) {
    const int place = i % kParagraphsPerPage;
    if (place == 0) page = document.NewPage();
    HPDF_Page_SetFontAndSize(page, times, kFontHeight);
    HPDF_Page_SetTextLeading(page, kParagraphLineStep);
    SetFill(page, ShadeOf(i));
    WriteParagraph(page, text.Paragraph(i), place * kParagraphStep, alignment);
  }
  document.Save(path);
}

template <Streams kStreams>
void WriteWrapped(const SampleText& text, int paragraphs, const char* path) {
  WriteParagraphs<kStreams>(text, paragraphs, HPDF_TALIGN_LEFT, path);
}

template <Streams kStreams>
void WriteJustified(const SampleText& text, int paragraphs, const char* path) {
  WriteParagraphs<kStreams>(text, paragraphs, HPDF_TALIGN_JUSTIFY, path);
}

void MeasureLines(const SampleText& text, int lines, const char* /*path*/) {
  HaruDocument document(Streams::Plain);
  HPDF_Page page = document.NewPage();
  HPDF_Page_SetFontAndSize(page, document.Font("Times-Roman"), kFontHeight);
  for (int i = 0; i < lines; ++i) {
    if (HPDF_Page_TextWidth(page, text.Line(i).data()) <= 0) Fail(kName, "no width");
  }
}

template <Streams kStreams>
const DocumentWriter& Writer() {
  static constexpr DocumentWriter kWriter = {kName,
                                             WriteText<kStreams>,
                                             WriteShapes<kStreams>,
                                             WriteWrapped<kStreams>,
                                             WriteJustified<kStreams>,
                                             MeasureLines};
  return kWriter;
}

}  // namespace

const DocumentWriter& Haru() { return Writer<Streams::Plain>(); }
const DocumentWriter& HaruCompressed() { return Writer<Streams::Compressed>(); }

}  // namespace vellumark::bench
