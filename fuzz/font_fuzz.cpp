// SPDX-License-Identifier: MIT
//
// Reads any bytes as a font file, shapes texts of several scripts with it, and embeds what it shows
// in both languages. The last byte chooses the face of a collection.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>

#include <vellumark/vellumark.h>

namespace {

template <class AnyDocument>
void Write(std::span<const std::uint8_t> font) {
  const auto memory = std::make_shared<vellumark::MemoryPlatform>();
  AnyDocument doc(memory);
  doc.Conforming(true);
  const std::int16_t index = font.empty() ? std::int16_t{0} : std::int16_t{font.back()} % 4;
  auto number = doc.LoadFont(font, index);
  if (number == vellumark::FontNumberConstants{}) number = doc.LoadFont(font);
  if (number == vellumark::FontNumberConstants{}) {
    if (doc.LastRefusal().sentence.empty()) std::abort();
    return;
  }
  if (!doc.AddFallbackFont(number) || !doc.Create("doc")) std::abort();
  doc.NewPage(50, 50, 50, 50, 255, 255, 255);
  for (const std::uint8_t size : {std::uint8_t{8}, std::uint8_t{72}}) {
    doc.SetFont(number, size, {}, {});
    doc.WriteText("AV fi A\u0301 (\u05D0\u05D1) \u0915\u093F", true);
    doc.WriteMultiText("Words \u6F22\u5B57\u3002 \u05D0 \u0644\u0627 \u0E01\u0E33 \U0001F600", 0,
                       {}, true, 200);
  }
  doc.Flush();
  const auto reason = doc.LastRefusal().reason;
  if (reason != vellumark::RefusalReason::None &&
      reason != vellumark::RefusalReason::DocumentNotWhole) {
    std::abort();
  }
  if (memory->File("doc")->empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Write<vellumark::PDF>({data, size});
  Write<vellumark::PS>({data, size});
  return 0;
}
