// SPDX-License-Identifier: MIT
//
// PoDoFo in a separate process, as picture_alone.cpp is for Vellumark:
//
//     podofo_alone SAMPLES WIDTH FILTER FILE DOCUMENTS
//
// reads the samples of a picture of 24 bits (picture_writers.h), writes so many PDFs with it, and
// prints the seconds that the documents took. FILTER is the number of the enumeration.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

#include "bench/contest.h"
#include "bench/fail.h"
#include "bench/picture_writers.h"

int main(int argc, char** argv) {
  namespace bench = vellumark::bench;
  if (argc != 6) bench::Fail(argv[0], "expects samples, a width, a filter, a file and a count");
  std::ifstream file(argv[1], std::ios::binary);
  const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
  const std::vector<std::uint8_t> samples(bytes.begin(), bytes.end());
  const int width = static_cast<int>(std::strtol(argv[2], nullptr, 10));
  const auto filter = static_cast<bench::Filter>(std::strtol(argv[3], nullptr, 10));
  const long documents = std::strtol(argv[5], nullptr, 10);
  const int height = static_cast<int>(samples.size()) / 3 / width;
  const double seconds = bench::Seconds([&] {
    for (int i = 0; i < documents; ++i) {
      bench::WriteWithPodofo({width, height, samples}, filter, argv[4]);
    }
  });
  std::printf("%.9f\n", seconds);
}
