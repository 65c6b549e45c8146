// SPDX-License-Identifier: MIT
//
// Refusal: why the last call did not do what was asked.
//
// Members return false and nothing else, so that calls stay cheap. A host that wants to know why
// asks the document afterwards:
//
//     if (!doc.WriteText(text)) {
//       const vellumark::Refusal refusal = doc.LastRefusal();
//       if (refusal.reason == vellumark::RefusalReason::TextTooWide) ...
//       std::cerr << refusal.sentence << '\n';   // "text is 612 points wide, but ..."
//     }
//
// The refusal is that of the latest Create, NewPage, Flush, drawing or writing call; after a call
// that succeeded the reason is None and the sentence is empty. Asking changes nothing.
#pragma once

#include <cstdint>
#include <string>

namespace vellumark {

enum class RefusalReason : std::int32_t {
  None = 0,             ///< the last call succeeded
  InvalidOrientation,   ///< Create: Orientation is not a member of OrientationConstants
  InvalidPaperSize,     ///< Create: PaperSize is not a member of PaperSizeConstants
  FileNotCreated,       ///< Create: the platform could not create the file, or it is in use
  FileNotOpen,          ///< Flush: no file is open, nothing was written
  FileNotWritten,       ///< Flush: the platform could not write or close the file
  MarginsNotTaken,      ///< NewPage: the margins leave no room; the previous ones stay
  NegativeCoordinate,   ///< a coordinate, size or radius is below 0
  BeyondRightMargin,    ///< a shape reaches over the right margin
  BeyondBottomMargin,   ///< a shape or text reaches over the bottom margin
  RadiusBeyondEdge,     ///< a radius is longer than the way from the center to the left or top edge
  TextTooWide,          ///< a text is wider than the room it has
  TitleTooWide,         ///< a title with its bullet is wider than the room it has
  LinesTooWide,         ///< the lines asked for are wider than the room they have
  WordTooWide,          ///< a word of a paragraph is wider than the line
  InvalidAlignment,     ///< the alignment is not a member of AlignmentConstants
  InvalidBullet,        ///< the bullet is not a member of BulletConstants
  InvalidEncoding,      ///< the encoding is not a member of EncodingConstants
  PictureNotLoaded,     ///< the picture file is missing, unknown or damaged
  NoObjectNumbersLeft,  ///< the call would not leave enough object numbers to finish the document
  RunTimeFault,         ///< a run-time error stopped the call; nothing of it was written
  NumberOutOfRange,     ///< a number does not fit into 16 bits, or 8 for a color part or height
  NoPage,               ///< a mark before the first NewPage
  PictureTooWide,       ///< a picture reaches over the right margin
  PictureTooHigh,       ///< a picture reaches over the bottom margin
  InvalidLevel,         ///< WriteBookmark: the level is below 1, or jumps over one
  InvalidAnchor,        ///< SetAnchor: the name is empty
  AnchorMissing,        ///< Flush: a link leads to an anchor that was never set; the file is whole
  DocumentNotWhole,     ///< Flush: a run-time error stopped the end of a page or of the document;
                        ///< the file was written, but something is missing in it
  RunningHeadTooWide,   ///< Flush: a Header or Footer that was set is wider than the room between
                        ///< the margins; its page is without it, and the file is whole
  FontNotLoaded,        ///< LoadFont: the file is missing, is not a font or is damaged, lacks the
                        ///< face, or its license bits forbid embedding
  NoFontsInBuild,       ///< LoadFont: the library was built without fonts
  FontUnknown,          ///< AddFallbackFont: LoadFont did not return this number
};

struct Refusal {
  RefusalReason reason = RefusalReason::None;
  std::string sentence;  ///< one sentence with the numbers in it, UTF-8; empty for None
};

}  // namespace vellumark
