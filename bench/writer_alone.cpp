// SPDX-License-Identifier: MIT
//
// One library in a separate process, to measure the whole process:
//
//     WRITER_alone PAGES FILE
//
// writes the text document of so many pages and prints the most memory that the process had in use,
// in KiB. It is built once for each library and linked with that one only.
#include <cstdio>
#include <cstdlib>

#include "bench/document_writer.h"
#include "bench/fail.h"
#include "bench/peak_memory.h"

using vellumark::bench::Fail;

int main(int argc, char** argv) {
  if (argc != 3) Fail(argv[0], "expects a number of pages and a file name");
  const int pages = static_cast<int>(std::strtol(argv[1], nullptr, 10));
  const vellumark::bench::SampleText text;
  vellumark::bench::WRITER().write_text(text, pages, argv[2]);
  std::printf("%ld\n", vellumark::bench::PeakMemoryInKiB());
}
