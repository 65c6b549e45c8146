// SPDX-License-Identifier: MIT
//
// From Create over page after page to Flush.
#include <ostream>
#include <utility>

#include "document/document_model.h"
#include "document/resume_next.h"

namespace vellumark::document {
namespace {

constexpr int kNarrowestColumn = 20;  // margins leave more than this much of the page

/// The legal notice as it stands on the page: the fonts have no copyright sign in every encoding.
std::string LegalNotice(Platform& platform) {
  constexpr std::string_view kSign = "©";
  std::string text(platform.LegalNotice());
  for (std::size_t at = text.find(kSign); at != std::string::npos; at = text.find(kSign, at)) {
    text.replace(at, kSign.size(), "(c)");
  }
  return text;
}

/// A platform of the host's may throw; the steps behind its call run all the same.
template <class Operation>
std::error_code ErrorOf(const Operation& operation) noexcept {
  try {
    return operation();
  } catch (const std::bad_alloc&) {
    return std::make_error_code(std::errc::not_enough_memory);
  } catch (const std::exception&) {
    return std::make_error_code(std::errc::io_error);
  }
}

}  // namespace

DocumentModel::DocumentModel(Platform& platform, State& state, LineBuffer& lines, Writer& writer)
    : platform_(platform), state_(state), lines_(lines), writer_(writer) {
  state_.footer = LegalNotice(platform);
  legal_notice_ = state_.footer;
  platform_.ShowNotice("Initialize()", platform_.Title());
}

const layout::TextSetter& DocumentModel::Setter() {
  if (setter_) return *setter_;
  shaping_ = nullptr;
  if (state_.oddities.TextIsCodePageBytes()) {
    if (!widths_) widths_.emplace(platform_);
    setter_ = std::make_unique<layout::ByteSetter>(*widths_);
  } else if (!state_.fonts.Empty()) {
    auto shaping = std::make_unique<layout::ShapingSetter>(state_.fonts);
    shaping_ = shaping.get();
    setter_ = std::move(shaping);
  } else {
    setter_ = std::make_unique<layout::UnicodeSetter>();
  }
  return *setter_;
}

FileNote DocumentModel::Create(const OutputTarget& target) noexcept {
  const FileHandle before = state_.file;
  std::ostream* const stream_before = state_.stream;
  try {
    return TryCreate(target);
  } catch (const std::exception& error) {
    if (state_.file != before && state_.file != FileHandle::Invalid) {
      ErrorOf([&] { return platform_.CloseOutput(state_.file); });
      state_.file = FileHandle::Invalid;
    }
    if (state_.stream != stream_before) state_.stream = nullptr;
    return FaultNote(error);
  }
}

FileNote DocumentModel::TryCreate(const OutputTarget& target) {
  const auto orientation = static_cast<std::int32_t>(state_.orientation);
  if (orientation != 1 && orientation != 2) {
    return RefusalNote{RefusalReason::InvalidOrientation, orientation};
  }
  if (!layout::IsPaperSize(state_.paper_size)) {
    return RefusalNote{RefusalReason::InvalidPaperSize,
                       static_cast<std::int32_t>(state_.paper_size)};
  }
  FileNote refused = OpenOutput(target);
  if (refused.note) return refused;
  state_.oddities = Oddities(!state_.conforming);
  fault_ = {};
  refused_head_ = {};
  held_pages_.clear();
  bookmark_level_ = 0;
  lost_.Clear();
  lines_.Clear(state_.conforming ? LineEnd::Lf : LineEnd::CrLf);
  setter_.reset();
  Setter();
  layout::GetPaperDimensions(state_.paper_size, state_.orientation, state_.page);
  writer_.BeginDocument(platform_.Now());
  ResetPen();
  return {};
}

/// Opens the file, or takes the stream, that the document goes into; refused, the document that was
/// open goes on, if its language says so.
FileNote DocumentModel::OpenOutput(const OutputTarget& target) {
  FileHandle opened = FileHandle::Invalid;
  std::ostream* stream = nullptr;
  FileNote refused;
  if (const auto* const file = std::get_if<std::string_view>(&target)) {
    const std::error_code error = ErrorOf([&] {
      std::error_code reason;
      opened = platform_.CreateOutput(*file, reason);
      return reason;
    });
    if (opened == FileHandle::Invalid) {
      refused = {RefusalReason::FileNotCreated, std::string(*file) + ": " + error.message()};
    }
  } else {
    stream = std::get<std::ostream*>(target);
    if (!stream->good()) {
      refused = {RefusalReason::FileNotCreated, "the stream has failed before"};
    }
  }
  if (refused.note && writer_.KeepsFileWhenCreateFails()) return refused;
  state_.file = opened;
  state_.stream = refused.note ? nullptr : stream;
  return refused;
}

void DocumentModel::ResetPen() {
  state_.color = layout::FormatColor(0, 0, 0);
  state_.dash = {};
  state_.fill_color = layout::FormatColor(0, 0, 0);
  state_.fill_style = false;
  state_.font = {FontNumberConstants::Courier, 8, FontStyleConstants::Regular,
                 FontEffectConstants::NoFontEffect};
  state_.margins = {};
  state_.page_color = layout::FormatColor(255, 255, 255);
  state_.picture_width = 0;
  state_.picture_height = 0;
  state_.thickness = 1;
  state_.page_open = false;
  state_.page_number = 0;
  state_.pages_ended = 0;
}

RefusalNote DocumentModel::NewPage(const Margins& margins, const layout::Rgb& color) noexcept {
  const RefusalNote note =
      StartPage(margins, layout::FormatColor(color.red, color.green, color.blue));
  if (note.reason == RefusalReason::RunTimeFault && !fault_) fault_ = note;
  return note;
}

/// Ends the open page and starts the next one. A failing step does not stop those behind it.
RefusalNote DocumentModel::StartPage(const Margins& margins,
                                     const layout::ColorText& color) noexcept {
  if (const RefusalNote refused =
          writer_.RoomFor(state_.page_open ? Pieces{.pages = 1} : Pieces{.marks = 1})) {
    return refused;
  }
  RefusalNote margins_note;
  const RefusalNote fault = ResumeNext([&] { return state_.page_open ? EndPage() : RefusalNote{}; },
                                       [&] {
                                         state_.page_open = true;
                                         state_.page_number = state_.pages_ended + 1;
                                       },
                                       [&] { writer_.BeginPage(); },  //
                                       [&] { margins_note = TakeMargins(margins); },
                                       [&] { state_.page_color = color; },  //
                                       [&] { writer_.PaintBackground(); },
                                       [&] {
                                         state_.position_x = 0;
                                         state_.line_start_x = 0;
                                         state_.position_y = state_.page.height;
                                       },
                                       [&] { writer_.AnnouncePage(); });
  return fault ? fault : margins_note;
}

RefusalNote DocumentModel::TakeMargins(const Margins& margins) {
  for (const Points margin : {margins.left, margins.top, margins.right, margins.bottom}) {
    if (margin < 0) return {RefusalReason::MarginsNotTaken, margin.value()};
  }
  // Sums are taken in `int`: one beyond 16 bits leaves no room either.
  const int across = margins.left.value() + margins.right.value();
  const int down = margins.top.value() + margins.bottom.value();
  const int most_across = state_.page.width.value() - kNarrowestColumn - 1;
  const int most_down = state_.page.height.value() - kNarrowestColumn - 1;
  if (across > most_across) return {RefusalReason::MarginsNotTaken, across, most_across};
  if (down > most_down) return {RefusalReason::MarginsNotTaken, down, most_down};
  state_.margins = margins;
  return {};
}

/// What runs over every page, then what ends it. A failing step does not stop those behind it.
RefusalNote DocumentModel::EndPage() noexcept {
  return ResumeNext([&] { return WriteRunningHeads(); }, [&] { writer_.EndPage(); },
                    [&] { ++state_.pages_ended; });
}

FileNote DocumentModel::Flush() noexcept {
  // A document without pages gets one.
  const bool starts_page = CheckPage().reason == RefusalReason::NoPage;
  const RefusalNote fault = ResumeNext(
      [&] { return starts_page ? StartPage(state_.margins, state_.page_color) : RefusalNote{}; },
      [&] { return EndPage(); }, [&] { return WriteHeldPlaces(); },
      [&] { return writer_.EndDocument(); });
  if (!fault_) fault_ = fault;
  try {
    return FinishFile();
  } catch (const std::exception& error) {  // memory is too short for the reason's words
    return FaultNote(error);
  }
}

/// Writes the file, and returns the first of what is wrong with it.
FileNote DocumentModel::FinishFile() {
  FileNote written = WriteOutput();
  if (written.note) return written;
  if (fault_) return RefusalNote{RefusalReason::DocumentNotWhole, fault_.got};
  if (refused_head_) return refused_head_;
  std::string missing = writer_.MissingAnchor();
  if (!missing.empty()) return {RefusalReason::AnchorMissing, std::move(missing)};
  return {};
}

FileNote DocumentModel::WriteOutput() {
  std::ostream* const stream = std::exchange(state_.stream, nullptr);
  return stream != nullptr ? WriteStream(*stream) : WriteFile();
}

/// Hands all lines to `use`.
template <class Use>
void DocumentModel::ForEachOutput(const Use& use) const {
  if (state_.oddities.LinesAreWrittenOneByOne()) {
    lines_.ForEachLine(use);
  } else {
    lines_.ForEachPiece(use);
  }
}

FileNote DocumentModel::WriteStream(std::ostream& stream) {
  const std::error_code error = ErrorOf([&] {
    ForEachOutput([&](std::string_view bytes) {
      stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    });
    stream.flush();
    return stream ? std::error_code() : std::make_error_code(std::errc::io_error);
  });
  if (!error) return {};
  return {RefusalReason::FileNotWritten, "the stream failed: " + error.message()};
}

FileNote DocumentModel::WriteFile() {
  if (state_.file == FileHandle::Invalid) return RefusalNote{RefusalReason::FileNotOpen};
  std::error_code first_error;
  ForEachOutput([&](std::string_view bytes) {
    const std::error_code error =
        ErrorOf([&] { return platform_.WriteOutput(state_.file, bytes); });
    if (error && !first_error) first_error = error;
  });
  const std::error_code error = ErrorOf([&] { return platform_.CloseOutput(state_.file); });
  state_.file = FileHandle::Invalid;
  if (error && !first_error) first_error = error;
  if (!first_error) return {};
  return {RefusalReason::FileNotWritten, first_error.message()};
}

}  // namespace vellumark::document
