// SPDX-License-Identifier: MIT
#include "tools/conversion.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "tools/classic/classic_output.h"
#include "tools/notes.h"
#include "tools/pdf_output.h"
#include "tools/picture_platform.h"
#include "tools/progress_line.h"
#include "tools/ps_output.h"
#include "tools/system_fonts.h"
#include "tools/typesetter.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

/// Conforming or classic documents, and how texts are measured for them.
class Outputs {
 public:
  explicit Outputs(const Options& options) : format_(options.format) {
    if (options.classic) {
      classic_ = std::make_unique<CodeMeasure>();
    } else {
      UseFonts(options.fonts);
    }
  }

  /// Measures with the fonts, which must outlive this.
  void UseFonts(const DocumentFonts& fonts) {
    if (fonts.Empty()) {
      conforming_ = std::make_unique<LibraryMeasure>();
    } else {
      conforming_ = std::make_unique<ShapedMeasure>(fonts);
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
  std::unique_ptr<TextMeasure> conforming_;
};

std::size_t LinesOf(const Source& source) {
  return static_cast<std::size_t>(std::count(source.text.begin(), source.text.end(), '\n'));
}

std::size_t LinesOf(const std::vector<Source>& sources) {
  std::size_t lines = 0;
  for (const Source& source : sources) lines += LinesOf(source);
  return lines;
}

class Conversion {
 public:
  Conversion(const std::vector<Source>& sources, const Options& options, DocumentSink& output)
      : sources_(sources),
        options_(options),
        output_(output),
        outputs_(options_),
        progress_(LinesOf(sources)) {
    if (!options.title_given) options_.properties.title = sources.front().Title();
    if (options.cover && options_.properties.title.empty()) {
      throw Failure("--cover: the text has no title to put there; add --title TEXT");
    }
    if (options.classic) {
      options_.style.page.headroom = kClassicHeadroom;
    } else {
      targets_.emplace(sources);
    }
  }

  bool Run(std::ostream& notes) {
    bool complete = true;
    AttemptOrRagged(notes);
    if (AddSystemFonts(notes)) AttemptOrRagged(notes);
    progress_.Clear();
    if (options_.contents && headings_.empty()) {
      notes << "vellumark: the text has no titles, and so no table of contents\n";
    }
    for (std::size_t i = 0; i < sources_.size(); ++i) {
      const std::string_view name = sources_.size() > 1 ? sources_[i].name : std::string_view();
      WriteNotes(results_[i], sources_[i].text, name, notes);
      if (!results_[i].lost_pictures.empty()) complete = false;
    }
    return complete;
  }

 private:
  void AttemptOrRagged(std::ostream& notes) {
    headings_.clear();
    try {
      Attempt(options_.style);
    } catch (const ObjectNumbersUsedUp&) {
      if (!options_.style.justify) FailTooLong();
      RunRagged(notes);
    }
  }

  /// Adds fonts of the system that show what the document lacks, if the user named none. Returns
  /// whether there are some.
  bool AddSystemFonts(std::ostream& notes) {
    if (options_.classic || options_.fonts.HasFallbacks()) return false;
    std::string lost;
    for (const TypesetResult& result : results_) lost += result.lost_characters;
    if (lost.empty()) return false;
    progress_.Clear();
    bool added = false;
    for (const std::string& file : FontsThatShow(lost)) {
      DocumentFonts fonts = options_.fonts;
      try {
        fonts.AddFallback(file);
        ScratchDocument loads(true, &fonts);
      } catch (const Failure&) {
        continue;  // one that cannot be embedded
      }
      options_.fonts = std::move(fonts);
      notes << "vellumark: " << file << " shows characters that the fonts lack\n";
      added = true;
    }
    if (added) outputs_.UseFonts(options_.fonts);
    return added;
  }

  void RunRagged(std::ostream& notes) {
    progress_.Clear();
    notes << "vellumark: the text is too long to be justified (one document holds about 16,000 "
             "justified words) and was set ragged\n";
    TextStyle ragged = options_.style;
    ragged.justify = false;
    try {
      Attempt(ragged);
    } catch (const ObjectNumbersUsedUp&) {
      FailTooLong();
    }
  }

  enum class Contents { None, AtTheEnd, InFront };

  /// With a table of contents the text is set twice: first to find out on which pages the titles
  /// are and how many the table takes, which is then at the end.
  void Attempt(const TextStyle& style) {
    Set(style, options_.contents ? Contents::AtTheEnd : Contents::None);
    if (headings_.empty()) return;
    for (PlacedHeading& heading : headings_) heading.page += contents_pages_;
    Set(style, Contents::InFront);
  }

  void Set(const TextStyle& style, Contents contents) {
    auto platform = std::make_shared<PicturePlatform>();
    platform->SetGreatestPicture(options_.picture_memory << 20);
    std::ostream& stream = output_.Begin();  // which the document may write to until it is gone
    const std::unique_ptr<OutputFormat> output = outputs_.Make(platform);
    Document& document = output->document();
    output->SetProperties(options_.properties);
    document.PaperSize(options_.paper);
    document.Orientation(options_.orientation);
    if (!options_.fonts.Empty()) output->UseFonts(options_.fonts);
    if (!document.Create(stream)) throw Failure(document.LastRefusal().sentence);
    if (!options_.classic) SetRunningHeads(options_.heads, style.page.margins, document);
    results_.clear();
    Typesetter typesetter(*output, outputs_.measure(), *platform, style,
                          targets_ ? &*targets_ : nullptr);
    if (options_.cover) typesetter.SetCoverPage(Cover(platform->Now()));
    if (contents == Contents::InFront) typesetter.SetContentsPages(headings_);
    std::size_t before = 0;
    for (const Source& source : sources_) {
      platform->SetFolder(source.Folder());
      typesetter.Typeset(source, results_.emplace_back(), [&](int pages, std::size_t line) {
        progress_.Show(pages, before + line);
      });
      before += LinesOf(source);
    }
    if (contents == Contents::AtTheEnd) {
      for (const TypesetResult& result : results_) {
        headings_.insert(headings_.end(), result.headings.begin(), result.headings.end());
      }
      if (!headings_.empty()) {
        contents_pages_ = typesetter.SetContentsPages(headings_);
        return;  // the pages are known: the document itself is set next
      }
    }
    document.Flush();
    const Refusal refusal = document.LastRefusal();
    NoteLostCharacters(output->LostCharacters());
    output_.CheckWritten();
    if (refusal.reason != RefusalReason::None) throw Failure(refusal.sentence);
  }

  [[nodiscard]] CoverText Cover(const LocalTime& now) const {
    constexpr std::array<std::string_view, 12> kMonths = {
        "January", "February", "March",     "April",   "May",      "June",
        "July",    "August",   "September", "October", "November", "December"};
    const std::string today = std::string(kMonths.at(static_cast<std::size_t>(now.month) - 1)) +
                              " " + std::to_string(now.day) + ", " + std::to_string(now.year);
    const Properties& properties = options_.properties;
    return {properties.title, properties.author, options_.date.value_or(today)};
  }

  /// With the input in which the first of them is.
  void NoteLostCharacters(const std::string& lost) {
    if (lost.empty()) return;
    std::size_t at = 0;
    const char32_t first = NextCharacter(lost, at);
    std::size_t found = 0;
    std::optional<Place> place;
    for (std::size_t i = 0; i < sources_.size() && !place; ++i) {
      place = sources_[i].PlaceOf(first);
      if (place) found = i;
    }
    results_[found].lost_characters = lost;
    results_[found].first_lost = place;
  }

  [[noreturn]] void FailTooLong() const {
    const TypesetResult& last = results_.back();
    const std::string& name = sources_[results_.size() - 1].name;
    throw Failure("the text is too long for one document: it is full at line " +
                  std::to_string(last.line) + " of " +
                  (sources_.size() > 1 ? name : std::string("the input")) + ", after " +
                  std::to_string(last.pages) + " pages; split the input there");
  }

  const std::vector<Source>& sources_;
  Options options_;
  DocumentSink& output_;
  Outputs outputs_;
  ProgressLine progress_;
  std::optional<LinkTargets> targets_;   // of a conforming document
  std::vector<TypesetResult> results_;   // of the sources that were begun
  std::vector<PlacedHeading> headings_;  // of the table of contents
  int contents_pages_ = 0;               // that the table takes
};

}  // namespace

bool Convert(const std::vector<Source>& sources, const Options& options, DocumentSink& output,
             std::ostream& notes) {
  return Conversion(sources, options, output).Run(notes);
}

}  // namespace vellumark::tools
