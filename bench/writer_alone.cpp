// SPDX-License-Identifier: MIT
//
// One library in a process of its own, for what a process as a whole costs:
//
//     WRITER_alone PAGES FILE
//
// writes the text document of so many pages and prints the most memory that the process had in use,
// in KiB. It is built once for each library and linked with that one only.
//
// The kernel's high-water mark is read here and not by the parent: what a parent is told of an
// ended child (ru_maxrss) also counts the parent's own memory, from the moment before the child's
// program was loaded.
#include <cstdio>
#include <cstdlib>

#include "bench/document_writer.h"
#include "bench/fail.h"

namespace {

using vellumark::bench::Fail;

long PeakMemoryInKiB() {
  std::FILE* const status = std::fopen("/proc/self/status", "r");
  if (status == nullptr) Fail("/proc/self/status", "cannot be opened");
  long peak = 0;
  char line[256];
  while (peak == 0 && std::fgets(line, sizeof line, status) != nullptr) {
    constexpr std::string_view kKey = "VmHWM:";
    if (std::string_view(line).starts_with(kKey)) {
      peak = std::strtol(line + kKey.size(), nullptr, 10);
    }
  }
  (void)std::fclose(status);
  return peak;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) Fail(argv[0], "expects a number of pages and a file name");
  const int pages = static_cast<int>(std::strtol(argv[1], nullptr, 10));
  const vellumark::bench::SampleText text;
  vellumark::bench::WRITER().write_text(text, pages, argv[2]);
  std::printf("%ld\n", PeakMemoryInKiB());
}
