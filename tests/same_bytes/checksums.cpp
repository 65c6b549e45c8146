// SPDX-License-Identifier: MIT
//
// Prints the checksums of a hundred and more documents, which must be the same wherever this was
// compiled and runs. The first half is made in the C locale, the second in one with commas.
//
//     checksums              one line a document: number, size, checksum
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <locale>
#include <string>

#include "tests/random_documents.h"

namespace {

constexpr std::uint32_t kDocuments = 160;

/// 1.234,5
class Commas final : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

int main() {  // NOLINT(bugprone-exception-escape): the test fails
  for (std::uint32_t number = 0; number < kDocuments; ++number) {
    if (number == kDocuments / 2) {
      for (const char* const name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) break;
      }
      std::locale::global(std::locale(std::locale(), new Commas));
    }
    const vellumark::tests::RandomDocument document(number);
    std::printf("%u %zu %016llx\n", static_cast<unsigned>(number), document.file.size(),
                static_cast<unsigned long long>(vellumark::tests::Checksum(document.file)));
  }
}
