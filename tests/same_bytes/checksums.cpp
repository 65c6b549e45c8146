// SPDX-License-Identifier: MIT
//
// Prints the checksums of a hundred and more documents and of what the encoders make of inputs of
// many kinds, which must be the same wherever this was compiled and runs. The first half of the
// documents is made in the C locale, what follows in one with commas.
//
//     checksums              one line a document: number, size, checksum
//                            one line a kind of input and encoder: names, size, checksum
//                            one line a document in every font: class, whether conforming
//                            one line a plausible document: number, class, whether conforming
#include <array>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <locale>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <vellumark/vellumark.h>

#include "encoding/encode_stream.h"
#include "encoding/zlib.h"
#include "tests/encoding/generated_input.h"
#include "tests/random_documents.h"
#include "tests/same_bytes/plausible_document.h"

namespace {

constexpr std::uint32_t kDocuments = 160;

/// 1.234,5
class Commas final : public std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

using vellumark::encoding::testing::Bytes;
using vellumark::encoding::testing::Random;

/// Words of `letters`, 3 to 8 long, behind "ab": chains of thousands of candidates of all lengths.
Bytes Words(std::size_t size, std::uint32_t letters) {
  Random random(letters);
  Bytes bytes;
  while (bytes.size() < size) {
    bytes.insert(bytes.end(), {'a', 'b'});
    for (std::uint32_t i = 3 + random.Next() % 6; i > 0; --i) {
      bytes.push_back(static_cast<std::uint8_t>('c' + random.Next() % letters));
    }
  }
  return bytes;
}

/// Stretches of words, of noise and of runs: each fills a block that is best cut where it ends.
Bytes Stretches(std::size_t size) {
  Bytes bytes;
  for (std::uint32_t seed = 1; bytes.size() < size; ++seed) {
    const std::size_t length = 5000 + 3000 * (seed % 5);
    const Bytes more = seed % 3 == 0   ? vellumark::encoding::testing::Noise(length, seed)
                       : seed % 3 == 1 ? Words(length, 2 + seed % 20)
                                       : Bytes(length, static_cast<std::uint8_t>(seed));
    for (const std::uint8_t byte : more) bytes.push_back(byte);
  }
  return bytes;
}

/// Every size up to `most`, of few byte values: where the kinds of blocks cost nearly the same.
std::vector<Bytes> Short(std::size_t most, std::uint32_t values) {
  std::vector<Bytes> inputs;
  Random random(values);
  for (std::size_t size = 1; size <= most; ++size) {
    Bytes bytes(size);
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random.Next() % values);
    inputs.push_back(std::move(bytes));
  }
  return inputs;
}

/// Where the parameters of a level decide: a match of each of some lengths, with a longer one a
/// byte later behind some candidates that are not, and then with a longer one farther away.
Bytes Edges() {
  Bytes bytes;
  Random random(258);
  const auto add = [&](const Bytes& from, std::size_t size) {
    bytes.insert(bytes.end(), from.begin(), from.begin() + static_cast<std::ptrdiff_t>(size));
    bytes.push_back(random.Byte());
  };
  constexpr std::array<std::size_t, 22> kLengths = {
      3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 18, 31, 32, 33, 34, 127, 128, 129, 130, 255, 257, 258};
  for (const std::size_t length : kLengths) {
    for (const int strangers : {0, 5, 10, 40, 100, 160, 500, 2000}) {
      const Bytes text = vellumark::encoding::testing::Noise(length + 4, random.Next());
      const Bytes behind(text.begin() + 1, text.end());
      add(behind, length + 2);
      for (int i = 0; i < strangers; ++i) add(behind, 3);
      add(text, length);
      add(text, length + 3);
      const Bytes other = vellumark::encoding::testing::Noise(length + 4, random.Next());
      add(other, length + 3);
      for (int i = 0; i < strangers; ++i) add(other, 3);
      add(other, length);
      add(other, length + 4);
    }
  }
  return bytes;
}

struct Input {
  const char* name;
  std::vector<Bytes> bytes;
};

std::vector<Input> Inputs() {
  using namespace vellumark::encoding::testing;
  return {{"words", {Words(150000, 2), Words(100000, 5), Words(70000, 20)}},
          {"stretches", {Stretches(300000)}},
          {"mixed", {GeneratedInput(200000, 1), GeneratedInput(70000, 2, 4000)}},
          {"far", {FarCopies(120000, 5, 3), FarCopies(120000, 258, 4)}},
          {"noise", {Noise(70000), Noise(20, 9)}},
          {"edges", {Edges()}},
          {"short", Short(80, 256)},
          {"few", Short(300, 3)},
          {"one", {Bytes(1, 7), Bytes(2, 7), Bytes(3, 0), Bytes(258, 1), Bytes(100000, 255)}}};
}

void Print(const char* name, const char* encoder, int level, const std::string& output) {
  std::printf("%s %s %d %zu %016llx\n", name, encoder, level, output.size(),
              static_cast<unsigned long long>(vellumark::tests::Checksum(output)));
}

void PrintEncoders() {
  using vellumark::EncodingConstants;
  constexpr std::pair<const char*, EncodingConstants> kFilters[] = {
      {"ascii85", EncodingConstants::ASCII85},
      {"hex", EncodingConstants::ASCIIHex},
      {"run length", EncodingConstants::RunLength}};
  for (const Input& input : Inputs()) {
    for (int level = 1; level <= 9; ++level) {
      std::string all;
      for (const Bytes& bytes : input.bytes) {
        std::string output;
        std::int32_t size = 0;
        vellumark::encoding::Zlib::Encode(static_cast<std::int32_t>(bytes.size()), bytes, size,
                                          output, static_cast<std::uint8_t>(level));
        all += output;
      }
      Print(input.name, "zlib", level, all);
    }
    for (const auto& [name, filter] : kFilters) {
      std::string all;
      for (const Bytes& bytes : input.bytes) {
        all += vellumark::encoding::EncodeStream(bytes, filter);
      }
      Print(input.name, name, 0, all);
    }
  }
}

/// A line in each face of each font, with letters beyond the first encoding.
template <class AnyDocument>
std::string EveryFont(bool conforming) {
  const auto memory = std::make_shared<vellumark::MemoryPlatform>();
  memory->SetTime({2026, 11, 22, 13, 5, 9, 0});
  AnyDocument document(memory);
  document.Conforming(conforming);
  if constexpr (std::is_same_v<AnyDocument, vellumark::PDF>) document.Compressed(false);
  document.Create("doc");
  document.NewPage(10, 10, 10, 10, 255, 255, 255);
  for (std::int32_t number = 1; number <= 5; ++number) {
    for (std::int32_t style = 1; style <= 4; ++style) {
      document.SetFont(static_cast<vellumark::FontNumberConstants>(number), 9,
                       static_cast<vellumark::FontStyleConstants>(style),
                       vellumark::FontEffectConstants::NoFontEffect);
      document.WriteText("Type (1) in \\each face: Ä é Ž ş Ω ✓", true);
    }
  }
  document.Flush();
  return *memory->File("doc");
}

template <class AnyDocument>
void PrintPlausible(const char* class_name) {
  for (const bool conforming : {false, true}) {
    for (std::uint32_t number = 0; number < 30; ++number) {
      const vellumark::tests::PlausibleDocument<AnyDocument> document(number, conforming);
      const std::string name = "plausible " + std::to_string(number);
      Print(name.c_str(), class_name, conforming ? 1 : 0, document.Bytes());
    }
  }
}

void PrintFonts() {
  for (const bool conforming : {false, true}) {
    Print("every font", "pdf", conforming ? 1 : 0, EveryFont<vellumark::PDF>(conforming));
    Print("every font", "ps", conforming ? 1 : 0, EveryFont<vellumark::PS>(conforming));
  }
}

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
  PrintEncoders();
  PrintFonts();
  PrintPlausible<vellumark::PDF>("pdf");
  PrintPlausible<vellumark::PS>("ps");
}
