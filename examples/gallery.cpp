// SPDX-License-Identifier: MIT
//
// gallery FOLDER: writes FOLDER/gallery.pdf, every drawing and text feature on labelled pages.
#include <iostream>
#include <string>

#include "examples/gallery_pages.h"

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
  doc.Flush();
  const vellumark::Refusal refusal = doc.LastRefusal();
  if (refusal.reason == vellumark::RefusalReason::None) return true;
  std::cerr << "gallery: " << refusal.sentence << '\n';
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = argc > 1 ? argv[1] : ".";
  return WriteGallery<vellumark::PDF>(folder + "/gallery.pdf") ? 0 : 1;
}
