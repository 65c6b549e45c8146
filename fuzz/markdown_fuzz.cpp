// SPDX-License-Identifier: MIT
//
// Typesets any bytes as the command-line host does. The first byte chooses the options; the others
// are the text, as Markdown or plain.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "tools/conversion.h"
#include "tools/failure.h"
#include "tools/input_text.h"

namespace {

using namespace vellumark::tools;

constexpr std::size_t kPartSize = 100;  // so that short texts are divided too

class MemorySink final : public DocumentSink {
 public:
  std::ostream& Begin() override { return stream_ = std::ostringstream(); }
  void CheckWritten() const override {
    if (!stream_) std::abort();
  }
  [[nodiscard]] std::string Bytes() const { return stream_.str(); }

 private:
  std::ostringstream stream_;
};

Options OptionsOf(unsigned bits) {
  Options options;
  options.inputs = {"text.md"};
  options.format = (bits & 1U) != 0 ? Format::Ps : Format::Pdf;
  options.classic = (bits & 2U) != 0;
  options.kind = (bits & 4U) != 0 ? TextKind::Plain : TextKind::Markdown;
  options.style.justify = (bits & 8U) != 0;
  if ((bits & 16U) != 0) {
    options.style.size = kLargestSize;
    options.style.page.margins = {0, 0, 0, 0};
  }
  if ((bits & 32U) != 0) options.style.page.margins = {150, 64, 150, 500};
  if (options.classic) return options;
  options.style.encoding = vellumark::EncodingConstants::Original;
  options.contents = options.style.has_contents = (bits & 64U) != 0;
  options.cover = options.style.has_cover = (bits & 128U) != 0;
  return options;
}

Source SourceOf(std::string text, TextKind kind) {
  Source source{"text.md", CheckedText(std::move(text), "text.md"), std::nullopt};
  if (kind == TextKind::Markdown) source.markdown.emplace(source.text, kPartSize);
  return source;
}

}  // namespace

/// Without fonts of the system: reading one takes longer than everything else.
extern "C" int LLVMFuzzerInitialize(int* /*count*/, char*** /*arguments*/) {
  return ::setenv("FONTCONFIG_FILE", VELLUMARK_NO_FONTS, 1);  // NOLINT(concurrency-mt-unsafe)
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return -1;
  const Options options = OptionsOf(data[0]);
  std::ostringstream notes;
  try {
    std::vector<Source> sources;
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    sources.push_back(SourceOf(text, options.kind));
    sources.push_back(SourceOf("# Second\n\n[first](text.md#a)", options.kind));
    MemorySink output;
    const bool complete = Convert(sources, options, output, notes);
    if (!output.Bytes().starts_with(options.format == Format::Ps ? "%!PS" : "%PDF")) std::abort();
    if (complete != (notes.str().find("vellumark: picture ") == std::string::npos)) {
      std::abort();
    }
  } catch (const Failure& failure) {
    const std::string reason = failure.what();
    if (reason.empty() || reason.find('\n') != std::string::npos) std::abort();
    // The only reasons that a text may have: a document takes any other.
    for (const char* const known : {"is not UTF-8", "NUL", "--cover: the text has no title",
                                    "points of the page for text", "too long for one document"}) {
      if (reason.find(known) != std::string::npos) return 0;
    }
    std::abort();
  }
  return 0;
}
