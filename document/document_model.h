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
// Text is bytes of the code page; the public classes convert it before it comes here.
//
// Errors. Members with a bool result never throw: they answer false and note the reason. NewPage
// and Flush never throw either and go on past a failing step. Accessors throw RunTimeError where
// they say so.
#pragma once

#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <vellumark/platform.h>

#include "document/line_buffer.h"
#include "document/refusal_note.h"
#include "document/state.h"
#include "document/usable_box.h"
#include "document/writer.h"
#include "layout/justification.h"
#include "layout/resize.h"
#include "layout/text_width.h"

namespace vellumark::document {

/// One run of text at the current position.
struct TextRun {
  std::string_view text;
  bool carriage_return = false;
  std::uint8_t dy = 0;  ///< points added below the text by the carriage return
  AlignmentConstants alignment = AlignmentConstants::NoAlignment;
  std::string_view hyperlink = {};
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

/// A picture file at the current position.
struct PictureFile {
  std::string_view name;  ///< UTF-8
  AlignmentConstants alignment = AlignmentConstants::NoAlignment;
  std::string_view hyperlink = {};
  EncodingConstants encoding = EncodingConstants::ASCII85;
};

class DocumentModel {
 public:
  /// Shows the construction notice. All references must outlive the model.
  DocumentModel(Platform& platform, State& state, LineBuffer& lines, Writer& writer);

  // The document and its pages (page_flow.cpp).
  bool Create(std::string_view file) noexcept;
  void NewPage(const Margins& margins, const layout::Rgb& color) noexcept;
  void Flush() noexcept;

  // Shapes (shapes.cpp). Coordinates as callers count them.
  bool DrawLine(Points x1, Points y1, Points x2, Points y2) noexcept;
  bool DrawRectangle(Points x, Points y, Points width, Points height) noexcept;
  bool DrawCurve(Points x1, Points y1, Points x2, Points y2, Points x3, Points y3) noexcept;
  bool DrawCircle(Points x, Points y, Points r) noexcept;
  bool DrawEllipse(Points x, Points y, Points rx, Points ry) noexcept;
  bool DrawArc(Points x, Points y, Points r, float th1, float th2) noexcept;

  // Text (text_run.cpp, title.cpp, paragraph.cpp).
  bool WriteText(const TextRun& run) noexcept;
  bool WriteTitle(const Title& title) noexcept;
  bool WriteMultiText(const Paragraph& paragraph) noexcept;

  // Pictures (picture.cpp).
  bool DrawPicture(const PictureFile& file) noexcept;

  // Accessors with rules (accessors.cpp); the others read and store the State's fields as they are.
  [[nodiscard]] static layout::Rgb Parse(const layout::ColorText& color);
  void SetFont(FontNumberConstants number, std::uint8_t height, FontStyleConstants style,
               FontEffectConstants effect) noexcept;
  void SetPictureDimensions(Points width, Points height) noexcept;
  void SetPosition(Points x, Points y);
  void SetThickness(std::uint8_t thickness) noexcept;

  /// Notes a refusal that was found before a call came here, and answers false.
  bool Refuse(const RefusalNote& note) noexcept {
    note_ = note;
    return false;
  }

  /// Why the last call was refused.
  [[nodiscard]] const RefusalNote& LastRefusal() const noexcept { return note_; }
  [[nodiscard]] std::string LastRefusalSentence() const { return Sentence(note_, detail_); }

 private:
  /// Everything that a call taken back must give back.
  struct Checkpoint {
    State state;
    LineBuffer::Mark lines;
    std::any writer;
  };

  /// Where a mark's object numbers come from: the free ones, or those kept back for the page end.
  enum class Numbers { Free, Reserved };

  /// The error trap of a member with a result: runs `steps`, which answer a RefusalNote, and keeps
  /// the note; a run-time error becomes one.
  template <class Steps>
  bool Attempt(const Steps& steps) noexcept {
    try {
      note_ = steps();
    } catch (const RunTimeError& error) {
      note_ = {RefusalReason::RunTimeFault, error.number(), 0};
    } catch (const std::exception&) {
      note_ = {RefusalReason::RunTimeFault, RunTimeError::OutOfMemory, 0};
    }
    return !note_;
  }

  /// For a call made of several others: if they run out of object numbers half way, what they
  /// wrote is taken back. `at_most` says how much they could write.
  template <class Steps>
  RefusalNote AllOrNothing(const Pieces& at_most, const Steps& steps) {
    if (!writer_.RoomFor(at_most)) return steps();
    const Checkpoint before = {state_, lines_.Here(), writer_.Save()};
    const RefusalNote outcome = steps();
    if (outcome.reason == RefusalReason::NoObjectNumbersLeft) {
      state_ = before.state;
      lines_.RollBack(before.lines);
      writer_.Restore(before.writer);
    }
    return outcome;
  }

  // page_flow.cpp
  RefusalNote TryCreate(std::string_view file);
  RefusalNote TakeMargins(const Margins& margins);
  RefusalNote WriteFile();
  void ResetPen();
  void EndPage();
  void WriteFooter();

  // shapes.cpp
  [[nodiscard]] UsableBox Box() const { return {state_.UsableWidth(), state_.UsableHeight()}; }
  [[nodiscard]] PagePoint OnPage(Points x, Points y) const {
    return {state_.PageX(x), state_.PageY(y)};
  }
  template <class Check, class Draw>
  bool DrawShape(const Check& check, const Draw& draw) noexcept;

  // text_run.cpp
  [[nodiscard]] RefusalNote CheckText(Points width, AlignmentConstants alignment) const;
  [[nodiscard]] std::optional<Points> EffectLine(Points y) const;
  RefusalNote TryWriteText(const TextRun& run, Numbers numbers);

  // title.cpp
  RefusalNote TryWriteTitle(const Title& title);
  RefusalNote WriteBulletAndText(const Title& title);

  // paragraph.cpp
  RefusalNote TryWriteMultiText(const Paragraph& paragraph);
  RefusalNote PlaceParagraph(const Paragraph& paragraph, Points& width);
  RefusalNote MeasureWords(std::string_view text, Points width);
  RefusalNote WriteLines(const Paragraph& paragraph, Points width);
  RefusalNote WriteFinishedLine(std::string_view line, const Paragraph& paragraph, Points width,
                                Points left);
  RefusalNote WriteLastLine(std::string_view line, const Paragraph& paragraph, Points left);
  RefusalNote BreakPageIfFull();

  // picture.cpp
  RefusalNote TryDrawPicture(const PictureFile& file);
  [[nodiscard]] layout::Resize::Size PictureSize(const layout::Resize::Size& pixels) const;

  /// The glyph widths, loaded on first use.
  const layout::FontWidths& Widths();

  Platform& platform_;
  State& state_;
  LineBuffer& lines_;
  Writer& writer_;
  std::optional<layout::FontWidths> widths_;
  std::string footer_;

  RefusalNote note_;
  std::string detail_;  // of a failed file operation: the name and the reason

  /// A word of the paragraph being written: where it lies in the text, and its width.
  struct Word {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::int32_t sum = 0;  // 1/1000 em
  };
  std::vector<Word> words_;          // of one paragraph; kept for its storage
  layout::JustifiedLine justified_;  // likewise
};

}  // namespace vellumark::document
