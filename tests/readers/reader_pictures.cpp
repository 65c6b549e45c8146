// SPDX-License-Identifier: MIT
//
// reader_pictures FOLDER: writes FOLDER/pictures.pdf and FOLDER/pictures.ps, one sample picture a
// page, 20 points from its top left corner: the files with 1, 4, 8 and 24 bits per pixel, each
// under ASCII85, ASCIIHex and Flate in turn.
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

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  const bool pdf = WritePictures<vellumark::PDF>(folder + "/pictures.pdf");
  const bool ps = WritePictures<vellumark::PS>(folder + "/pictures.ps");
  return pdf && ps ? 0 : 1;
}
