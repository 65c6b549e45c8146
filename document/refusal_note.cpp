// SPDX-License-Identifier: MIT
#include "document/refusal_note.h"

#include <initializer_list>

namespace vellumark::document {
namespace {

std::string Join(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text.append(part);
  return text;
}

/// "6 (overflow)"
std::string NameOfError(std::int32_t number) {
  const RunTimeError error(static_cast<RunTimeError::Number>(number));
  return Join({std::to_string(number), " (", error.what(), ")"});
}

std::string MarginsSentence(const RefusalNote& note) {
  const std::string got = std::to_string(note.got);
  if (note.got < 0) {
    return Join({"a margin is ", got,
                 " points, but none may be below 0; the page has the previous margins"});
  }
  if (note.allowed < 0) return "no document is open, so there is no page; call Create first";
  return Join({"two opposite margins are ", got, " points together, but at most ",
               std::to_string(note.allowed),
               " points leave room on the page; the page has the previous margins"});
}

}  // namespace

RefusalNote FaultNote(const std::exception& error) noexcept {
  const auto* const fault = dynamic_cast<const RunTimeError*>(&error);
  return {RefusalReason::RunTimeFault,
          fault != nullptr ? fault->number() : RunTimeError::OutOfMemory, 0};
}

std::string Sentence(const RefusalNote& note, std::string_view detail) {
  const std::string got = std::to_string(note.got);
  const std::string allowed = std::to_string(note.allowed);
  const auto too_wide = [&](std::string_view subject) {
    return Join({subject, got, " points wide, but only ", allowed,
                 " points are free up to the right margin"});
  };
  const auto beyond = [&](std::string_view subject, std::string_view axis) {
    return Join({subject, " would reach ", axis, " = ", got, ", but the usable area ends at ", axis,
                 " = ", allowed});
  };
  constexpr std::string_view kFit = "; move the position or set a box with SetPictureDimensions";
  switch (note.reason) {
    case RefusalReason::None: return {};
    case RefusalReason::InvalidOrientation:
      return Join({"orientation is ", got, ", but it must be 1 (Portrait) or 2 (Landscape)"});
    case RefusalReason::InvalidPaperSize:
      return Join({"paper size is ", got, ", which is not a member of PaperSizeConstants"});
    case RefusalReason::FileNotCreated: return Join({"the file cannot be created: ", detail});
    case RefusalReason::FileNotOpen: return "no file is open, so nothing was written";
    case RefusalReason::FileNotWritten: return Join({"the file cannot be written: ", detail});
    case RefusalReason::MarginsNotTaken: return MarginsSentence(note);
    case RefusalReason::NegativeCoordinate:
      return Join({"a coordinate, size or radius is ", got, ", but none may be below 0"});
    case RefusalReason::BeyondRightMargin: return beyond("shape", "x");
    case RefusalReason::BeyondBottomMargin: return beyond("shape or text", "y");
    case RefusalReason::RadiusBeyondEdge:
      return Join({"radius is ", got, " points, but the center is only ", allowed,
                   " points from the left or top edge"});
    case RefusalReason::TextTooWide: return too_wide("text is ");
    case RefusalReason::TitleTooWide: return too_wide("title with its bullet is ");
    case RefusalReason::LinesTooWide: return too_wide("lines would be ");
    case RefusalReason::WordTooWide:
      return Join({"a word is ", got, " points wide, but a line has only ", allowed, " points"});
    case RefusalReason::InvalidAlignment:
      return Join({"alignment is ", got, ", but it must be 0 to 3"});
    case RefusalReason::InvalidBullet:
      return Join({"bullet is ", got, ", but it must be 1 (Disc) or 2 (Square)"});
    case RefusalReason::InvalidEncoding:
      return Join({"encoding is ", got, ", but it must be 1 to ", allowed});
    case RefusalReason::PictureNotLoaded: return Join({"the picture cannot be loaded: ", detail});
    case RefusalReason::NoObjectNumbersLeft:
      return Join({"the call needs more object numbers than the ", allowed,
                   " that are free; flush this document and start another one"});
    case RefusalReason::RunTimeFault:
      if (note.got == RunTimeError::OutOfMemory) return "the call ran out of memory";
      return Join({"run-time error ", NameOfError(note.got), " stopped the call"});
    case RefusalReason::NumberOutOfRange:
      return Join({"a number is ", got, ", but it must be ", note.allowed == 255 ? "0" : "-32768",
                   " to ", allowed});
    case RefusalReason::NoPage: return "no page is open; call NewPage first";
    case RefusalReason::PictureTooWide: return beyond("picture", "x").append(kFit);
    case RefusalReason::PictureTooHigh: return beyond("picture", "y").append(kFit);
    case RefusalReason::InvalidLevel:
      return Join({"bookmark level is ", got, ", but it must be 1 to ", allowed});
    case RefusalReason::InvalidAnchor: return "an anchor needs a name";
    case RefusalReason::AnchorMissing:
      return Join({"the file is whole, but a link leads to #", detail,
                   ", and no anchor has this name; call SetAnchor"});
    case RefusalReason::RunningHeadTooWide:
      return Join({"the file is whole, but a header or footer is left out: it is ", got,
                   " points wide, and only ", allowed, " points are free between the margins"});
    case RefusalReason::FontNotLoaded: return Join({"the font cannot be loaded: ", detail});
    case RefusalReason::NoFontsInBuild:
      return "this build has no fonts; the library was configured with VELLUMARK_FONTS=OFF";
    case RefusalReason::FontUnknown:
      return Join({"font number is ", got, ", but it must be one that LoadFont returned"});
    case RefusalReason::DocumentNotWhole:
      return Join({"the document is not whole: run-time error ", NameOfError(note.got),
                   " stopped the end of a page or of the document"});
  }
  return {};
}

}  // namespace vellumark::document
