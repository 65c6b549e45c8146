// SPDX-License-Identifier: MIT
//
// The sample documents with the PDF and PostScript surfaces of cairo. It embeds the fonts that the
// system has under the standard names and compresses its streams, which the other two do not, so
// its numbers are in the report for information only. It has no line breaking, so it is done here.
#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <cstring>

#include "bench/document_writer.h"
#include "bench/fail.h"

namespace vellumark::bench {
namespace {

constexpr const char* kName = "cairo";
constexpr double kTurn = 2 * 3.14159265358979323846;

using CreateSurface = cairo_surface_t*(const char* path, double width, double height);

class CairoDocument {
 public:
  CairoDocument(CreateSurface* create, const char* path)
      : surface_(create(path, kPageWidth, kPageHeight)),
        cairo_(cairo_create(surface_)),
        helvetica_(Face("Helvetica")),
        times_(Face("Times")) {}
  CairoDocument(const CairoDocument&) = delete;
  CairoDocument& operator=(const CairoDocument&) = delete;
  CairoDocument(CairoDocument&&) = delete;
  CairoDocument& operator=(CairoDocument&&) = delete;
  ~CairoDocument() {
    cairo_font_face_destroy(times_);
    cairo_font_face_destroy(helvetica_);
    cairo_destroy(cairo_);
    cairo_surface_finish(surface_);
    if (cairo_surface_status(surface_) != CAIRO_STATUS_SUCCESS) Fail(kName, "file not written");
    cairo_surface_destroy(surface_);
  }

  [[nodiscard]] cairo_t* Get() const { return cairo_; }
  [[nodiscard]] cairo_font_face_t* Helvetica() const { return helvetica_; }
  [[nodiscard]] cairo_font_face_t* Times() const { return times_; }

  void EndPage() {
    if (cairo_status(cairo_) != CAIRO_STATUS_SUCCESS) Fail(kName, "a call was refused");
    cairo_show_page(cairo_);
  }

 private:
  static cairo_font_face_t* Face(const char* family) {
    return cairo_toy_font_face_create(family, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  }

  cairo_surface_t* surface_;
  cairo_t* cairo_;
  cairo_font_face_t* helvetica_;
  cairo_font_face_t* times_;
};

void SetSource(cairo_t* cairo, Shade shade) {
  cairo_set_source_rgb(cairo, shade.red / 255.0, shade.green / 255.0, shade.blue / 255.0);
}

double Advance(cairo_t* cairo, const char* text) {
  cairo_text_extents_t extents{};
  cairo_text_extents(cairo, text, &extents);
  return extents.x_advance;
}

template <CreateSurface* kCreate>
void WriteText(const SampleText& text, int pages, const char* path) {
  CairoDocument document(kCreate, path);
  cairo_t* const cairo = document.Get();
  for (int page = 0; page < pages; ++page) {
    for (int i = 0; i < kLinesPerPage; ++i) {
      const char* const line = text.Line(page * kLinesPerPage + i).data();
      cairo_set_font_face(cairo, i % 2 == 0 ? document.Helvetica() : document.Times());
      cairo_set_font_size(cairo, kFontHeight);
      SetSource(cairo, ShadeOf(i));
      if (Advance(cairo, line) > kPageWidth - 2 * kMargin) Fail(kName, "text is too wide");
      cairo_move_to(cairo, kMargin, kMargin + i * kLineStep + kFontHeight);
      cairo_show_text(cairo, line);
    }
    document.EndPage();
  }
}

void WriteTextEmbedded(const SampleText& text, int pages, const char* path) {
  CairoDocument document(cairo_pdf_surface_create, path);
  cairo_t* const cairo = document.Get();
  cairo_font_face_t* const face =
      cairo_toy_font_face_create(kFontName, CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  for (int page = 0; page < pages; ++page) {
    for (int i = 0; i < kLinesPerPage; ++i) {
      const char* const line = text.Line(page * kLinesPerPage + i).data();
      cairo_set_font_face(cairo, face);
      cairo_set_font_size(cairo, kFontHeight);
      SetSource(cairo, ShadeOf(i));
      if (Advance(cairo, line) > kPageWidth - 2 * kMargin) Fail(kName, "text is too wide");
      cairo_move_to(cairo, kMargin, kMargin + i * kLineStep + kFontHeight);
      cairo_show_text(cairo, line);
    }
    document.EndPage();
  }
  cairo_font_face_destroy(face);
}

void FillAndStroke(cairo_t* cairo, int look) {
  SetSource(cairo, ShadeOf(look + 1));
  cairo_fill_preserve(cairo);
  SetSource(cairo, ShadeOf(look));
  cairo_set_line_width(cairo, LineWidthOfShape(look));
  cairo_stroke(cairo);
}

template <CreateSurface* kCreate>
void WriteShapes(int of_each_kind, const char* path) {
  CairoDocument document(kCreate, path);
  cairo_t* const cairo = document.Get();
  constexpr int kRadius = kShapeSize / 2;
  for (int number = 0; number < of_each_kind; ++number) {
    const int i = number % kShapesPerPage;
    const auto [left, rectangle_top, circle_top] = PlaceOfShape(i);
    cairo_rectangle(cairo, kMargin + left, kMargin + rectangle_top, kShapeSize, kShapeSize);
    FillAndStroke(cairo, 2 * i);
    cairo_arc(cairo, kMargin + left + kRadius, kMargin + circle_top + kRadius, kRadius, 0, kTurn);
    FillAndStroke(cairo, 2 * i + 1);
    if (i == kShapesPerPage - 1 || number == of_each_kind - 1) document.EndPage();
  }
}

void ShowLine(cairo_t* cairo, std::string_view line, double y) {
  std::array<char, 2048> terminated{};
  std::memcpy(terminated.data(), line.data(), line.size());
  cairo_move_to(cairo, kMargin, y);
  cairo_show_text(cairo, terminated.data());
}

/// Wraps with a running sum of the widths of the words.
void WriteParagraph(cairo_t* cairo, std::string_view text, double y) {
  const double blank = Advance(cairo, " ");
  const char* line = text.data();
  const char* const end = line + text.size();
  double sum = 0;
  for (const char* word = line; word < end;) {
    std::array<char, 64> terminated{};
    const std::size_t size = std::strcspn(word, " ");
    std::memcpy(terminated.data(), word, size);
    const double width = Advance(cairo, terminated.data());
    if (sum + width > kPageWidth - 2 * kMargin) {
      ShowLine(cairo, {line, static_cast<std::size_t>(word - 1 - line)}, y);
      y += kParagraphLineStep;
      line = word;
      sum = 0;
    }
    sum += width + blank;
    word += size + 1;
  }
  ShowLine(cairo, {line, static_cast<std::size_t>(end - line)}, y);
}

template <CreateSurface* kCreate>
void WriteWrapped(const SampleText& text, int paragraphs, const char* path) {
  CairoDocument document(kCreate, path);
  cairo_t* const cairo = document.Get();
  cairo_set_font_face(cairo, document.Times());
  for (int i = 0; i < paragraphs; ++i) {
    const int place = i % kParagraphsPerPage;
    cairo_set_font_size(cairo, kFontHeight);
    SetSource(cairo, ShadeOf(i));
    WriteParagraph(cairo, text.Paragraph(i), kMargin + place * kParagraphStep + kFontHeight);
    if (place == kParagraphsPerPage - 1) document.EndPage();
  }
}

}  // namespace

const DocumentWriter& Cairo() {
  static constexpr DocumentWriter kWriter = {kName,
                                             WriteText<cairo_pdf_surface_create>,
                                             WriteShapes<cairo_pdf_surface_create>,
                                             WriteWrapped<cairo_pdf_surface_create>,
                                             nullptr,
                                             nullptr};
  return kWriter;
}

const DocumentWriter& CairoEmbedded() {
  static constexpr DocumentWriter kWriter = {kName,   WriteTextEmbedded, nullptr,
                                             nullptr, nullptr,           nullptr};
  return kWriter;
}

const DocumentWriter& CairoPs() {
  static constexpr DocumentWriter kWriter = {"cairo PS",
                                             WriteText<cairo_ps_surface_create>,
                                             WriteShapes<cairo_ps_surface_create>,
                                             WriteWrapped<cairo_ps_surface_create>,
                                             nullptr,
                                             nullptr};
  return kWriter;
}

}  // namespace vellumark::bench
