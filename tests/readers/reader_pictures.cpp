// SPDX-License-Identifier: MIT
//
// reader_pictures FOLDER: writes FOLDER/pictures.pdf and FOLDER/pictures.ps, one sample picture a
// page, 20 points from its top left corner: the files with 1, 4, 8 and 24 bits per pixel, each
// under ASCII85, ASCIIHex and Flate in turn. Then alpha_pdf.pdf and alpha_ps.ps, with one page of a
// color and the picture with transparency on it, and conforming_alpha_pdf.pdf and
// conforming_alpha_ps.ps with the same in conforming output.
#include <initializer_list>
#include <string>

#include <vellumark/vellumark.h>

namespace {

using vellumark::EncodingConstants;

template <class AnyDocument>
bool WritePictures(const std::string& file) {
  AnyDocument doc;
  bool written = doc.Create(file);
  for (const char* const bits : {"1", "4", "8", "24"}) {
    for (const auto encoding :
         {EncodingConstants::ASCII85, EncodingConstants::ASCIIHex, EncodingConstants::Flate}) {
      doc.NewPage(20, 20, 20, 20, 255, 255, 255);
      vellumark::Document& shared = doc;
      const std::string picture = std::string(VELLUMARK_PICTURES "/landscape_") + bits + ".bmp";
      written = shared.DrawPicture(picture, {}, encoding) && written;
    }
  }
  doc.Flush();
  return written && doc.LastRefusal().reason == vellumark::RefusalReason::None;
}

template <class AnyDocument>
bool WriteAlpha(const std::string& file, bool conforming) {
  AnyDocument doc;
  doc.Conforming(conforming);
  bool written = doc.Create(file);
  doc.NewPage(20, 20, 20, 20, 60, 220, 120);
  written = doc.DrawPicture(VELLUMARK_PICTURES "/landscape_alpha.png") && written;
  doc.Flush();
  return written && doc.LastRefusal().reason == vellumark::RefusalReason::None;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  const bool pdf = WritePictures<vellumark::PDF>(folder + "/pictures.pdf");
  const bool ps = WritePictures<vellumark::PS>(folder + "/pictures.ps");
  bool alpha = true;
  for (const bool conforming : {false, true}) {
    const std::string name = folder + (conforming ? "/conforming_alpha" : "/alpha");
    alpha = WriteAlpha<vellumark::PDF>(name + "_pdf.pdf", conforming) && alpha;
    alpha = WriteAlpha<vellumark::PS>(name + "_ps.ps", conforming) && alpha;
  }
  return pdf && ps && alpha ? 0 : 1;
}
