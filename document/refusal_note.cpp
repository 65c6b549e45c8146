// SPDX-License-Identifier: MIT
#include "document/refusal_note.h"

#include <initializer_list>

#include <vellumark/run_time_error.h>

namespace vellumark::document {
namespace {

std::string Join(std::initializer_list<std::string_view> parts) {
  std::string text;
  for (const std::string_view part : parts) text.append(part);
  return text;
}

}  // namespace

std::string Sentence(const RefusalNote& note, std::string_view detail) {
  const std::string got = std::to_string(note.got);
  const std::string allowed = std::to_string(note.allowed);
  switch (note.reason) {
    case RefusalReason::None: return {};
    case RefusalReason::InvalidOrientation:
      return Join({"orientation is ", got, ", it must be 1 (Portrait) or 2 (Landscape)"});
    case RefusalReason::InvalidPaperSize:
      return Join({"paper size is ", got, ", which is no member of PaperSizeConstants"});
    case RefusalReason::FileNotCreated: return Join({"file cannot be created: ", detail});
    case RefusalReason::FileNotOpen: return "no file is open, nothing was written";
    case RefusalReason::FileNotWritten: return Join({"file cannot be written: ", detail});
    case RefusalReason::MarginsNotTaken:
      if (note.got < 0) {
        return Join({"a margin is ", got, ", none may be below 0; the previous margins stay"});
      }
      return Join({"margins take ", got, " points together, at most ", allowed,
                   " leave room; the previous margins stay"});
    case RefusalReason::NegativeCoordinate:
      return Join({"a coordinate, size or radius is ", got, ", none may be below 0"});
    case RefusalReason::BeyondRightMargin:
      return Join({"shape reaches to x = ", got, ", the right margin is at ", allowed});
    case RefusalReason::BeyondBottomMargin:
      return Join({"y would reach ", got, ", the bottom margin is at ", allowed});
    case RefusalReason::RadiusBeyondEdge:
      return Join({"radius is ", got, " points, the centre lies ", allowed, " from the edge"});
    case RefusalReason::TextTooWide:
      return Join({"text is ", got, " points wide, ", allowed, " are left of the right margin"});
    case RefusalReason::TitleTooWide:
      return Join({"title is ", got, " points wide with its bullet, ", allowed,
                   " are left of the right margin"});
    case RefusalReason::LinesTooWide:
      return Join(
          {"lines would be ", got, " points wide, ", allowed, " are left of the right margin"});
    case RefusalReason::WordTooWide:
      return Join({"a word is ", got, " points wide, the line ", allowed});
    case RefusalReason::InvalidAlignment:
      return Join({"alignment is ", got, ", it must be 0 to 3"});
    case RefusalReason::InvalidBullet:
      return Join({"bullet is ", got, ", it must be 1 (Disc) or 2 (Square)"});
    case RefusalReason::InvalidEncoding: return Join({"encoding is ", got, ", it must be 1 to 4"});
    case RefusalReason::PictureNotLoaded: return Join({"picture cannot be loaded: ", detail});
    case RefusalReason::NoObjectNumbersLeft:
      return Join({"call needs more object numbers than the ", allowed,
                   " that are left beside those that finish the document"});
    case RefusalReason::RunTimeFault:
      return Join({"run-time error ", got, ": ",
                   RunTimeError(static_cast<RunTimeError::Number>(note.got)).what()});
  }
  return {};
}

}  // namespace vellumark::document
