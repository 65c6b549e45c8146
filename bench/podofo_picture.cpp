// SPDX-License-Identifier: MIT
#include <podofo/podofo.h>

#include "bench/fail.h"
#include "bench/picture_writers.h"

namespace vellumark::bench {
namespace {

PoDoFo::EPdfFilter FilterOf(Filter filter) {
  switch (filter) {
    case Filter::Ascii85: return PoDoFo::ePdfFilter_ASCII85Decode;
    case Filter::AsciiHex: return PoDoFo::ePdfFilter_ASCIIHexDecode;
    case Filter::Flate: break;
  }
  return PoDoFo::ePdfFilter_FlateDecode;
}

}  // namespace

void WriteWithPodofo(const Raster& picture, Filter filter, const char* path) {
  try {
    PoDoFo::PdfMemDocument document;
    PoDoFo::PdfPage* const page =
        document.CreatePage(PoDoFo::PdfPage::CreateStandardPageSize(PoDoFo::ePdfPageSize_A4));
    PoDoFo::PdfImage image(&document);
    image.SetImageColorSpace(PoDoFo::ePdfColorSpace_DeviceRGB);
    PoDoFo::PdfMemoryInputStream samples(reinterpret_cast<const char*>(picture.samples.data()),
                                         static_cast<PoDoFo::pdf_long>(picture.samples.size()));
    const PoDoFo::TVecFilters filters = {FilterOf(filter)};
    image.SetImageData(static_cast<unsigned>(picture.width), static_cast<unsigned>(picture.height),
                       8, &samples, filters);
    PoDoFo::PdfPainter painter;
    painter.SetPage(page);
    painter.DrawImage(50, 400, &image, 0.48, 0.48);
    painter.FinishPage();
    document.Write(path);
  } catch (const PoDoFo::PdfError& error) {
    Fail("PoDoFo", PoDoFo::PdfError::ErrorName(error.GetError()));
  }
}

}  // namespace vellumark::bench
