// SPDX-License-Identifier: MIT
//
// Pictures in a separate process, to measure the memory and the time that they take where no memory
// has been touched before:
//
//     picture_alone PICTURE ENCODING FILE DOCUMENTS
//
// draws the picture file into each of so many PDFs with the filter of that number, and prints the
// most memory that the process had in use, in KiB, and the seconds that the documents took. If
// PICTURE is empty, no picture is drawn.
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <vellumark/vellumark.h>

#include "bench/contest.h"
#include "bench/fail.h"
#include "bench/peak_memory.h"

namespace {

void Write(std::string_view picture, vellumark::EncodingConstants encoding, std::string_view file) {
  using vellumark::bench::Fail;
  vellumark::PDF document;
  if (!document.Create(file)) Fail("vellumark", "no document");
  document.NewPage(50, 50, 50, 50, 255, 255, 255);
  document.SetPictureDimensions(495, 700);
  if (!picture.empty() && !document.DrawPicture(picture, {}, "", encoding)) {
    Fail("vellumark", "the picture was refused");
  }
  document.Flush();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    vellumark::bench::Fail(argv[0], "expects a picture, an encoding, a file and a count");
  }
  const auto encoding =
      static_cast<vellumark::EncodingConstants>(std::strtol(argv[2], nullptr, 10));
  const long documents = std::strtol(argv[4], nullptr, 10);
  const double seconds = vellumark::bench::Seconds([&] {
    for (long i = 0; i < documents; ++i) Write(argv[1], encoding, argv[3]);
  });
  std::printf("%ld %.9f\n", vellumark::bench::PeakMemoryInKiB(), seconds);
}
