// SPDX-License-Identifier: MIT
//
// One picture in a separate process, to measure the memory that it takes:
//
//     picture_alone PICTURE ENCODING FILE
//
// draws the picture file into a PDF with the filter of that number and prints the most memory that
// the process had in use, in KiB. If PICTURE is empty, no picture is drawn.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <vellumark/vellumark.h>

#include "bench/fail.h"
#include "bench/peak_memory.h"

int main(int argc, char** argv) {
  using vellumark::bench::Fail;
  if (argc != 4) Fail(argv[0], "expects a picture, an encoding and a file");
  vellumark::PDF document;
  if (!document.Create(argv[3])) Fail("vellumark", "no document");
  document.NewPage(50, 50, 50, 50, 255, 255, 255);
  document.SetPictureDimensions(495, 700);
  const auto encoding =
      static_cast<vellumark::EncodingConstants>(std::strtol(argv[2], nullptr, 10));
  const std::string_view picture = argv[1];
  if (!picture.empty() && !document.DrawPicture(picture, {}, "", encoding)) {
    Fail("vellumark", "the picture was refused");
  }
  document.Flush();
  std::printf("%ld\n", vellumark::bench::PeakMemoryInKiB());
}
