// SPDX-License-Identifier: MIT
//
// draw_pictures FILE...: draws each picture, and prints "drawn" or why it was refused.
#include <cstdio>
#include <memory>

#include <vellumark/vellumark.h>

int main(int argc, char** argv) {
  vellumark::PDF doc(std::make_shared<vellumark::MemoryPlatform>());
  doc.Create("pictures.pdf");
  doc.NewPage(0, 0, 0, 0, 255, 255, 255);
  for (int i = 1; i < argc; ++i) {
    const bool drawn = doc.DrawPicture(argv[i]);
    std::puts(drawn ? "drawn" : doc.LastRefusal().sentence.c_str());
  }
  return 0;
}
