// SPDX-License-Identifier: MIT
#include "tools/conversion.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>
#include <utility>

#include "tools/notes.h"
#include "tools/pdf_output.h"
#include "tools/picture_platform.h"
#include "tools/progress_line.h"
#include "tools/ps_output.h"
#include "tools/typesetter.h"

namespace vellumark::tools {
namespace {

constexpr const char* kFile = "document";

/// The first title of the text, as the Title property.
std::string FirstTitle(const MarkdownTree& tree) {
  for (NodeWalk walk(tree.root()); walk.Next();) {
    if (KindOf(walk.node()) == NodeKind::Heading) return PlainText(ReadInlines(walk.node()));
  }
  return {};
}

/// The folder that relative names of pictures start from.
std::filesystem::path PictureFolder(const Options& options) {
  if (options.input == "-") return {};
  return std::filesystem::path(options.input).parent_path();
}

std::unique_ptr<OutputFormat> MakeOutput(Format format, std::shared_ptr<Platform> platform) {
  if (format == Format::Ps) return std::make_unique<PsOutput>(std::move(platform));
  return std::make_unique<PdfOutput>(std::move(platform));
}

class Conversion {
 public:
  Conversion(const std::string& text, const Options& options)
      : text_(text),
        tree_(text),
        options_(options),
        progress_(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'))) {
    if (!options.title_given) options_.properties.title = FirstTitle(tree_);
  }

  Converted Run(std::ostream& notes) {
    std::string bytes;
    try {
      bytes = Attempt(options_.style);
    } catch (const ObjectNumbersUsedUp&) {
      if (!options_.style.justify) FailTooLong();
      bytes = RunRagged(notes);
    }
    progress_.Clear();
    WriteNotes(result_, text_, notes);
    return {std::move(bytes), result_.lost_pictures.empty()};
  }

 private:
  std::string RunRagged(std::ostream& notes) {
    progress_.Clear();
    notes << "vellumark: the text is too long to be justified (one document holds about 16,000 "
             "justified words) and was set ragged\n";
    TextStyle ragged = options_.style;
    ragged.justify = false;
    try {
      return Attempt(ragged);
    } catch (const ObjectNumbersUsedUp&) {
      FailTooLong();
    }
  }

  std::string Attempt(const TextStyle& style) {
    auto platform = std::make_shared<PicturePlatform>(PictureFolder(options_));
    const std::unique_ptr<OutputFormat> output = MakeOutput(options_.format, platform);
    Document& document = output->document();
    output->SetProperties(options_.properties);
    document.PaperSize(options_.paper);
    document.Orientation(options_.orientation);
    if (!document.Create(kFile)) throw Failure(document.LastRefusal().sentence);
    result_ = {};
    Typesetter(*output, measure_, *platform, style)
        .Typeset(tree_, result_,
                 [this](int pages, std::size_t line) { progress_.Show(pages, line); });
    document.Flush();
    const Refusal refusal = document.LastRefusal();
    if (refusal.reason != RefusalReason::None) throw Failure(refusal.sentence);
    return platform->TakeFile(kFile);
  }

  [[noreturn]] void FailTooLong() const {
    throw Failure("the text is too long for one document: it is full at line " +
                  std::to_string(result_.line) + " of the input, after " +
                  std::to_string(result_.pages) + " pages; split the input there");
  }

  std::string_view text_;
  MarkdownTree tree_;
  Options options_;
  ProgressLine progress_;
  GlyphMeasure measure_;
  TypesetResult result_;
};

}  // namespace

Converted Convert(const std::string& text, const Options& options, std::ostream& notes) {
  return Conversion(text, options).Run(notes);
}

}  // namespace vellumark::tools
