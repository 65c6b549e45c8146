// SPDX-License-Identifier: MIT
//
// DocumentModel: what a PDF and a PostScript document do alike.
//
// It owns the rules: which arguments are accepted, where things stand, when a page ends, how a
// paragraph breaks. It owns no bytes of output: those the Writer appends to the line buffer, in its
// own language. One object serves one document; its parts live beside it:
//
//     State state;  LineBuffer lines;  pdf::PdfWriter writer(state, lines);
//     DocumentModel model(platform, state, lines, writer);
//
// Text is bytes of the code page in a classic document, and UTF-8 in a conforming one; a TextSetter
// measures it and makes codes of it.
//
// Errors. The document's, page's, drawing and writing members never throw: they return the note of
// what they refused, or of the run-time error that stopped them, after which nothing of the call is
// left. NewPage and Flush go on past a failing step; the first such failure is remembered, and
// Flush returns it. Accessors throw RunTimeError if they say so.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <vellumark/platform.h>

#include "document/line_buffer.h"
#include "document/refusal_note.h"
#include "document/state.h"
#include "document/usable_box.h"
#include "document/writer.h"
#include "layout/justification.h"
#include "layout/lost_characters.h"
#include "layout/picture_source.h"
#include "layout/resize.h"
#include "layout/shaping_setter.h"
#include "layout/text_setter.h"

namespace vellumark::document {

/// One run of text at the current position.
struct TextRun {
  std::string_view text;
  bool carriage_return = false;
  std::uint8_t dy = 0;  ///< points added below the text by the carriage return
  AlignmentConstants alignment = AlignmentConstants::NoAlignment;
  std::string_view hyperlink = {};
  std::span<const PlacedWord> words = {};  ///< of a justified line, instead of `text`
};

/// A one-line title behind a bullet.
struct Title {
  std::string_view text;
  AlignmentConstants alignment = AlignmentConstants::NoAlignment;
  BulletConstants bullet = BulletConstants::Disc;
  std::string_view hyperlink = {};
};

/// A text broken into lines.
struct Paragraph {
  std::string_view text;
  std::uint8_t dy = 0;
  AlignmentConstants alignment = AlignmentConstants::NoAlignment;
  bool justified = false;
  Points width;  ///< of the lines; below 1 for all that is left of the right margin
};

/// A picture at the current position.
struct PlacedPicture {
  layout::PictureSource source;
  AlignmentConstants alignment = AlignmentConstants::NoAlignment;
  std::string_view hyperlink = {};
  EncodingConstants encoding = EncodingConstants::ASCII85;
};

/// A font file, and which face of it: counted from 0 in a collection.
struct FontSource {
  layout::PictureSource file;  ///< a name for the platform, or the bytes
  int index = 0;
};

/// What Create starts a document in: a file of the platform, by its name in UTF-8, or a stream.
using OutputTarget = std::variant<std::string_view, std::ostream*>;

class DocumentModel {
 public:
  /// Shows the construction notice. All references must outlive the model.
  DocumentModel(Platform& platform, State& state, LineBuffer& lines, Writer& writer);

  // The document and its pages (page_flow.cpp).
  FileNote Create(const OutputTarget& target) noexcept;
  RefusalNote NewPage(const Margins& margins, const layout::Rgb& color) noexcept;
  FileNote Flush() noexcept;

  // Shapes (shapes.cpp). Coordinates as callers count them.
  RefusalNote DrawLine(Points x1, Points y1, Points x2, Points y2) noexcept;
  RefusalNote DrawRectangle(Points x, Points y, Points width, Points height) noexcept;
  RefusalNote DrawCurve(Points x1, Points y1, Points x2, Points y2, Points x3, Points y3) noexcept;
  RefusalNote DrawCircle(Points x, Points y, Points r) noexcept;
  RefusalNote DrawEllipse(Points x, Points y, Points rx, Points ry) noexcept;
  RefusalNote DrawArc(Points x, Points y, Points r, float th1, float th2) noexcept;

  // Text (text_run.cpp, title.cpp, paragraph.cpp).
  RefusalNote WriteText(const TextRun& run) noexcept;
  RefusalNote WriteTitle(const Title& title) noexcept;
  RefusalNote WriteMultiText(const Paragraph& paragraph) noexcept;

  /// Where a text would reach, in the current font, without writing it (measure.cpp).
  RefusalNote MeasureText(std::string_view text, Points& width) noexcept;
  RefusalNote MeasureParagraph(const Paragraph& paragraph, std::int32_t& height) noexcept;

  // Bookmarks and anchors (navigation.cpp). Texts are UTF-8.
  RefusalNote WriteBookmark(std::string_view text, int level) noexcept;
  RefusalNote SetAnchor(std::string_view name) noexcept;

  // Pictures (picture.cpp).
  FileNote DrawPicture(const PlacedPicture& placed) noexcept;

  // Fonts of the host's (load_font.cpp).
  /// What makes the engine when the first font is loaded; it returns null in a build without fonts,
  /// and, with the reason, if it is not installed.
  using MakeEngine = std::unique_ptr<layout::FontEngine> (*)(std::string& reason);
  FileNote LoadFont(const FontSource& source, MakeEngine make_engine,
                    FontNumberConstants& number) noexcept;
  RefusalNote AddFallbackFont(FontNumberConstants number) noexcept;

  /// The characters that readers do not see as themselves, of what was written since Create.
  [[nodiscard]] layout::LostCharacters& Lost() noexcept { return lost_; }

  // Accessors with rules (accessors.cpp); the others read and store the State's fields as they are.
  void SetFont(FontNumberConstants number, std::uint8_t height, FontStyleConstants style,
               FontEffectConstants effect) noexcept;
  void SetPictureDimensions(Points width, Points height) noexcept;
  void SetPosition(Points x, Points y);
  void SetThickness(std::uint8_t thickness) noexcept;

 private:
  static constexpr int kFooterHeight = 12;  // points, from the footer's top to the bottom margin

  /// Where a mark's object numbers come from: the free ones, or those kept back for the page end.
  enum class Numbers { Free, Reserved };

  /// The error trap: runs `steps`, which return a note. A run-time error becomes a note too, and
  /// what the call had written is taken back. The page's state is the caller's to change last.
  template <class Steps>
  auto Attempt(const Steps& steps) noexcept -> decltype(steps()) {
    LineBuffer::Mark lines;
    lines_.Here(lines);
    const std::size_t lost = lost_.Here();
    writer_.Mark();
    try {
      return steps();
    } catch (const std::exception& error) {
      lines_.RollBack(lines);
      writer_.BackToMark();
      lost_.RollBack(lost);
      return FaultNote(error);
    }
  }

  /// For a call made of several others: if one of them fails, what they wrote is taken back, and
  /// the page's state is what it was.
  template <class Steps>
  RefusalNote AllOrNothing(const Steps& steps) noexcept {
    const PageState page = state_;  // NOLINT(cppcoreguidelines-slicing): the rest stays
    const std::size_t held_pages = held_pages_.size();
    const RefusalNote refused_head = refused_head_;
    LineBuffer::Mark lines;
    lines_.Here(lines);
    const std::size_t lost = lost_.Here();
    const RefusalNote outcome = Attempt(steps);
    if (outcome) {
      lines_.RollBack(lines);
      writer_.BackToMark();
      lost_.RollBack(lost);
      static_cast<PageState&>(state_) = page;
      held_pages_.resize(held_pages);
      refused_head_ = refused_head;
    }
    return outcome;
  }

  // page_flow.cpp
  FileNote TryCreate(const OutputTarget& target);
  FileNote OpenOutput(const OutputTarget& target);
  RefusalNote StartPage(const Margins& margins, const layout::ColorText& color) noexcept;
  RefusalNote TakeMargins(const Margins& margins);
  template <class Use>
  void ForEachOutput(const Use& use) const;
  FileNote WriteOutput();
  FileNote WriteFile();
  FileNote WriteStream(std::ostream& stream);
  FileNote FinishFile();
  void ResetPen();
  RefusalNote EndPage() noexcept;

  // running_heads.cpp
  /// Times 10 in black, whatever the host's pen; and the host's pen again.
  struct HeldPage {
    std::int32_t page_number = 0;
    Margins margins;
    std::string header;
    std::string footer;
  };
  RefusalNote WriteRunningHeads() noexcept;
  void WriteRunningHead(std::string_view text, int top, std::int32_t page, std::int32_t pages);
  RefusalNote WriteHeldPlaces() noexcept;

  // shapes.cpp
  [[nodiscard]] UsableBox Box() const { return {state_.UsableWidth(), state_.UsableHeight()}; }
  [[nodiscard]] PagePoint OnPage(Points x, Points y) const {
    return {state_.PageX(x), state_.PageY(y)};
  }
  /// Whether there is a page to draw on, where one is needed.
  [[nodiscard]] RefusalNote CheckPage() const {
    if (state_.page_open || state_.oddities.MarksNeedNoPage()) return {};
    return {RefusalReason::NoPage};
  }
  template <class Check, class Draw>
  RefusalNote TryDrawShape(const Check& check, const Draw& draw);
  template <class Check, class Draw>
  RefusalNote DrawShape(const Check& check, const Draw& draw) noexcept;
  RefusalNote TryDrawCircle(Points x, Points y, Points r);
  RefusalNote TryDrawRectangle(Points x, Points y, Points width, Points height);

  // text_run.cpp
  [[nodiscard]] RefusalNote CheckText(Points width, AlignmentConstants alignment) const;
  [[nodiscard]] std::optional<Points> EffectLine(Points y) const;
  RefusalNote TryWriteText(const TextRun& run, Numbers numbers = Numbers::Free);
  RefusalNote PlaceText(const TextRun& run, Points width, Numbers numbers);

  // title.cpp
  RefusalNote TryWriteTitle(const Title& title);
  RefusalNote WriteBulletAndText(const Title& title);

  /// A word of the paragraph being written: where it lies in the text, and its width.
  struct Word {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::int32_t sum = 0;  // 1/1000 em
  };

  /// The words of a line: from `first` up to before `end`.
  struct LineOfWords {
    std::size_t first = 0;
    std::size_t end = 0;
    std::int32_t blank = 0;        // 1/1000 em
    bool bytes_are_codes = false;  // of the paragraph's text
  };

  // paragraph.cpp
  RefusalNote TryWriteMultiText(const Paragraph& given);
  /// Where the lines of a paragraph stand.
  struct Column {
    Points left;
    Points width;
  };
  [[nodiscard]] RefusalNote CheckParagraph(const Paragraph& paragraph) const;
  [[nodiscard]] RefusalNote PlaceParagraph(const Paragraph& paragraph, Column& column) const;
  template <class Line>
  void BreakLines(Points width, const Line& line);
  RefusalNote MeasureWords(std::string_view text, const layout::CodeWidths* codes, Points width);
  RefusalNote WriteLines(const Paragraph& paragraph, bool bytes_are_codes, const Column& column);
  [[nodiscard]] Points ParagraphHeight() const;

  // shaped_paragraph.cpp
  RefusalNote MeasurePieces(const Paragraph& paragraph, Points width);
  template <class Line>
  void BreakPieces(Points width, const Line& line);
  [[nodiscard]] std::int32_t CountShapedLines(Points width);
  RefusalNote WriteShapedLines(const Paragraph& paragraph, const Column& column);
  RefusalNote WriteShapedLine(const Paragraph& paragraph, const Column& column,
                              layout::LineOfPieces line, bool justified);

  // load_font.cpp
  FileNote TryLoadFont(const FontSource& source, MakeEngine make_engine,
                       FontNumberConstants& number);
  RefusalNote WriteFinishedLine(const Paragraph& paragraph, const LineOfWords& line, Points width,
                                Points left);
  static std::string_view TextOfWord(std::string_view text, std::span<const Word> words,
                                     std::size_t i);
  RefusalNote WriteWordsAlone(const Paragraph& paragraph, std::span<const Word> words, Points left);
  RefusalNote WriteWordsTogether(const Paragraph& paragraph, const LineOfWords& line,
                                 std::span<const Word> words, Points width, Points left);
  RefusalNote WriteLastLine(std::string_view line, const Paragraph& paragraph, Points left);
  RefusalNote BreakPageIfFull();

  // picture.cpp
  FileNote TryDrawPicture(const PlacedPicture& placed);
  [[nodiscard]] layout::Size PictureSize(const layout::Size& pixels) const;

  /// Who measures and encodes the document's text; made on first use, which loads the widths.
  const layout::TextSetter& Setter();

  /// Whether a paragraph is cut into lines by its pieces: it has glyphs of loaded fonts.
  [[nodiscard]] bool Shapes(std::string_view text) {
    Setter();
    return shaping_ != nullptr && shaping_->Shapes(text, state_.font);
  }

  Platform& platform_;
  State& state_;
  LineBuffer& lines_;
  Writer& writer_;
  std::optional<layout::FontWidths> widths_;
  std::unique_ptr<layout::TextSetter> setter_;
  layout::ShapingSetter* shaping_ = nullptr;  // the same, if it is one
  layout::ShapedText shaped_paragraph_;       // of one paragraph; kept for its storage
  std::vector<HeldPage> held_pages_;          // whose running heads name the number of pages
  int bookmark_level_ = 0;                    // of the last bookmark
  layout::LostCharacters lost_;
  RefusalNote fault_;         // the first failure of a page end since Create
  RefusalNote refused_head_;  // the first header or footer since Create that was too wide
  std::string legal_notice_;  // as a footer

  std::vector<Word> words_;                         // of one paragraph; kept for its storage
  std::vector<std::int32_t> sums_;                  // of one line
  std::vector<Points> positions_;                   // likewise
  layout::EncodedText encoded_;                     // of the text being written
  std::vector<layout::EncodedRun> plain_runs_;      // of the line being written
  std::vector<layout::EncodedText> encoded_words_;  // of the line being written
  std::vector<PlacedWord> placed_words_;            // likewise
};

/// Calls `line` with every line but the last of the words that were measured, up to the first that
/// returns a refusal.
template <class Line>
void DocumentModel::BreakLines(Points width, const Line& line) {
  const std::int32_t widest = layout::FontWidths::LargestSum(state_.font.height, width);
  const std::int32_t blank = Setter().Measure(" ", state_.font);
  std::size_t first = 0;
  std::int32_t line_sum = 0;
  for (std::size_t i = 0; i < words_.size(); ++i) {
    const std::int32_t with_blank = words_[i].sum + blank;  // a blank always follows a word
    if (line_sum + with_blank > widest) {
      if (line(LineOfWords{first, i, blank})) return;
      first = i;
      line_sum = 0;
    }
    line_sum += with_blank;
  }
}

}  // namespace vellumark::document
