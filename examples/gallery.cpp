// SPDX-License-Identifier: MIT
//
// gallery [--classic] [FOLDER]: writes FOLDER/gallery.pdf and FOLDER/gallery.ps with every drawing,
// text and picture feature on labeled pages, both with the same code: as conforming documents, or
// with --classic as classic ones.
#include <iostream>
#include <string>

#include "examples/gallery_pages.h"
#include "examples/gallery_pictures.h"

namespace {

template <class AnyDocument>
bool WriteGallery(const std::string& file, bool conforming) {
  AnyDocument doc;
  doc.Title("Vellumark gallery");
  doc.Conforming(conforming);
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
  std::string folder = ".";
  bool conforming = true;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--classic") {
      conforming = false;
    } else {
      folder = argument;
    }
  }
  const bool pdf = WriteGallery<vellumark::PDF>(folder + "/gallery.pdf", conforming);
  const bool ps = WriteGallery<vellumark::PS>(folder + "/gallery.ps", conforming);
  return pdf && ps ? 0 : 1;
}
