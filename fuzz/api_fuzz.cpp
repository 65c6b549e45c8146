// SPDX-License-Identifier: MIT
//
// Any sequence of calls of any members, of both classes and both outputs, with pictures from
// memory. Whatever was called, the file keeps the rules that it states itself.
//
//     input = kind:1 { member:1 arguments }
//     kind  = bit 0: PS   bit 1: classic   bit 2: plain   bit 3: not created
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <vellumark/vellumark.h>

#include "fuzz/fuzzed_bytes.h"
#include "fuzz/random_calls.h"
#include "fuzz/written_file.h"

namespace {

using namespace vellumark;
using automation::Class;

template <class AnyDocument>
void Run(fuzz::FuzzedBytes& bytes, std::uint8_t kind, Class document_class) {
  const auto memory = std::make_shared<MemoryPlatform>();
  memory->SetGreatestPicture(fuzz::RandomCalls::kGreatestPicture);
  memory->SetTime({2026, 11, 15, 16, 5, 9, 0});
  AnyDocument document(memory);
  const bool conforming = (kind & 2U) == 0;
  document.Conforming(conforming);
  if constexpr (std::is_same_v<AnyDocument, PDF>) document.Compressed((kind & 4U) == 0);
  fuzz::RandomCalls calls(document, document_class, bytes);
  if ((kind & 8U) == 0) calls.Start();
  calls.Make();
  const std::string* const file = memory->File("doc");
  if (!calls.whole() || file == nullptr) return;
  const std::string fault = document_class == Class::PS ? fuzz::FaultOfPs(*file, conforming)
                            : conforming                ? fuzz::FaultOfPdf(*file)
                                                        : fuzz::FaultOfClassicPdf(*file);
  if (fault.empty()) return;
  std::fprintf(stderr, "%s\n", fault.c_str());
  std::fwrite(file->data(), 1, file->size(), stderr);
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::FuzzedBytes bytes({data, size});
  const std::uint8_t kind = bytes.Byte();
  if ((kind & 1U) != 0) {
    Run<PS>(bytes, kind, Class::PS);
  } else {
    Run<PDF>(bytes, kind, Class::PDF);
  }
  return 0;
}
