// SPDX-License-Identifier: MIT
//
// gallery FOLDER: writes FOLDER/gallery.pdf and FOLDER/gallery.ps with every drawing, text and
// picture feature on labeled pages, both with the same code.
#include <iostream>
#include <string>

#include "examples/gallery_pages.h"
#include "examples/gallery_pictures.h"

namespace {

template <class AnyDocument>
bool WriteGallery(const std::string& file) {
  AnyDocument doc;
  doc.Title("Vellumark gallery");
  if (!doc.Create(file)) {
    std::cerr << "gallery: " << doc.LastRefusal().sentence << '\n';
    return false;
  }
  vellumark::examples::DrawGallery(doc);
  vellumark::examples::DrawPicturePages(doc, VELLUMARK_PICTURES "/");
  doc.Flush();
  const vellumark::Refusal refusal = doc.LastRefusal();
  if (refusal.reason == vellumark::RefusalReason::None) return true;
  std::cerr << "gallery: " << refusal.sentence << '\n';
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  const bool pdf = WriteGallery<vellumark::PDF>(folder + "/gallery.pdf");
  const bool ps = WriteGallery<vellumark::PS>(folder + "/gallery.ps");
  return pdf && ps ? 0 : 1;
}
