// SPDX-License-Identifier: MIT
//
// RandomDocument: the file of a document of random calls, the same for a number wherever it runs.
//
//     RandomDocument(17).file          // of a class, an output and calls that follow from 17
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <vellumark/vellumark.h>

#include "fuzz/fuzzed_bytes.h"
#include "fuzz/random_calls.h"

namespace vellumark::tests {

struct RandomDocument {
  bool ps = false;
  bool conforming = false;
  bool whole = false;  ///< Flush said nothing
  std::string file;

  explicit RandomDocument(std::uint32_t number)
      : ps((number & 1U) != 0), conforming((number & 2U) == 0) {
    if (ps) {
      Make<PS>(number, automation::Class::PS);
    } else {
      Make<PDF>(number, automation::Class::PDF);
    }
  }

 private:
  /// Bytes of a linear congruence; for every other four documents ASCII only.
  static std::vector<std::uint8_t> Bytes(std::uint32_t number) {
    constexpr std::size_t kCount = 3000;
    std::vector<std::uint8_t> bytes(kCount);
    std::uint64_t state = number;
    for (std::uint8_t& byte : bytes) {
      state = state * 6364136223846793005ULL + 1442695040888963407ULL;
      byte = static_cast<std::uint8_t>(state >> 56U);
      if ((number & 4U) != 0) byte &= 127U;
    }
    return bytes;
  }

  template <class AnyDocument>
  void Make(std::uint32_t number, automation::Class document_class) {
    const auto memory = std::make_shared<MemoryPlatform>();
    memory->SetGreatestPicture(fuzz::RandomCalls::kGreatestPicture);
    memory->SetTime({2026, 11, 15, 16, 5, 9, 0});
    AnyDocument document(memory);
    document.Conforming(conforming);
    const std::vector<std::uint8_t> bytes = Bytes(number);
    fuzz::FuzzedBytes left(bytes);
    fuzz::RandomCalls calls(document, document_class, left);
    calls.Start();
    calls.Make();
    whole = calls.whole();
    if (const std::string* const made = memory->File("doc")) file = *made;
  }
};

/// A number that tells files apart: FNV-1a.
inline std::uint64_t Checksum(std::string_view bytes) {
  std::uint64_t sum = 14695981039346656037ULL;
  for (const char c : bytes) sum = (sum ^ static_cast<std::uint8_t>(c)) * 1099511628211ULL;
  return sum;
}

}  // namespace vellumark::tests
