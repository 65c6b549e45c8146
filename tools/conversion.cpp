// SPDX-License-Identifier: MIT
#include "tools/conversion.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <ostream>
#include <utility>

#include "tools/classic/classic_output.h"
#include "tools/lost_characters.h"
#include "tools/notes.h"
#include "tools/pdf_output.h"
#include "tools/picture_platform.h"
#include "tools/progress_line.h"
#include "tools/ps_output.h"
#include "tools/typesetter.h"
#include "tools/utf8_text.h"

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

/// Conforming or classic documents, and how texts are measured for them.
class Outputs {
 public:
  explicit Outputs(const Options& options) : format_(options.format) {
    if (options.classic) {
      classic_ = std::make_unique<CodeMeasure>();
    } else {
      conforming_ = std::make_unique<LibraryMeasure>();
    }
  }

  [[nodiscard]] TextMeasure& measure() const {
    return classic_ ? static_cast<TextMeasure&>(*classic_) : *conforming_;
  }

  [[nodiscard]] std::unique_ptr<OutputFormat> Make(std::shared_ptr<Platform> platform) const {
    const bool ps = format_ == Format::Ps;
    if (classic_ && ps) return std::make_unique<ClassicPs>(std::move(platform), *classic_);
    if (classic_) return std::make_unique<ClassicPdf>(std::move(platform), *classic_);
    if (ps) return std::make_unique<PsOutput>(std::move(platform));
    return std::make_unique<PdfOutput>(std::move(platform));
  }

 private:
  Format format_;
  std::unique_ptr<CodeMeasure> classic_;
  std::unique_ptr<LibraryMeasure> conforming_;
};

class Conversion {
 public:
  Conversion(const std::string& text, const Options& options)
      : text_(text),
        tree_(text),
        options_(options),
        outputs_(options),
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
    const std::unique_ptr<OutputFormat> output = outputs_.Make(platform);
    Document& document = output->document();
    output->SetProperties(options_.properties);
    document.PaperSize(options_.paper);
    document.Orientation(options_.orientation);
    if (!document.Create(kFile)) throw Failure(document.LastRefusal().sentence);
    result_ = {};
    Typesetter(*output, outputs_.measure(), *platform, style)
        .Typeset(tree_, result_,
                 [this](int pages, std::size_t line) { progress_.Show(pages, line); });
    document.Flush();
    NoteLostCharacters(output->LostCharacters());
    const Refusal refusal = document.LastRefusal();
    if (refusal.reason != RefusalReason::None) throw Failure(refusal.sentence);
    return platform->TakeFile(kFile);
  }

  void NoteLostCharacters(std::string lost) {
    result_.lost_characters = std::move(lost);
    if (result_.lost_characters.empty()) return;
    std::size_t at = 0;
    const char32_t first = NextCharacter(result_.lost_characters, at);
    result_.first_lost = PlaceOfCharacter(first, tree_.root(), text_);
  }

  [[noreturn]] void FailTooLong() const {
    throw Failure("the text is too long for one document: it is full at line " +
                  std::to_string(result_.line) + " of the input, after " +
                  std::to_string(result_.pages) + " pages; split the input there");
  }

  std::string_view text_;
  MarkdownTree tree_;
  Options options_;
  Outputs outputs_;
  ProgressLine progress_;
  TypesetResult result_;
};

}  // namespace

Converted Convert(const std::string& text, const Options& options, std::ostream& notes) {
  return Conversion(text, options).Run(notes);
}

}  // namespace vellumark::tools
