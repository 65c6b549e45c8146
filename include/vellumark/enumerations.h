// SPDX-License-Identifier: MIT
//
// The eight public enumerations, and the class through which automation clients reach them.
//
// Each is 32 bits wide and may carry any value, as a client that passes plain numbers can:
//
//     doc.SetFont(static_cast<vellumark::FontNumberConstants>(9), 12, ...);
//
// The document's member that takes a value says what becomes of one outside the enumeration: it is
// ignored, replaced by a default, or the call is refused.
#pragma once

#include <cstdint>

namespace vellumark {

/// Where a text or picture stands within the usable width. NoAlignment: at the current position.
enum class AlignmentConstants : std::int32_t {
  NoAlignment = 0,
  LeftAlign = 1,
  Center = 2,
  RightAlign = 3,
};

/// What stands in front of a title.
enum class BulletConstants : std::int32_t {
  Disc = 1,
  Square = 2,
};

/// The filter that a picture's samples are encoded with.
enum class EncodingConstants : std::int32_t {
  ASCII85 = 1,
  ASCIIHex = 2,
  RunLength = 3,
  Flate = 4,
  Original = 5,  ///< conforming documents only: a JPG file's own bytes, Flate for other kinds
};

/// A line drawn with a text.
enum class FontEffectConstants : std::int32_t {
  NoFontEffect = 0,
  Strikethrough = 1,
  Underline = 2,
};

/// The font family.
enum class FontNumberConstants : std::int32_t {
  Courier = 1,
  Helvetica = 2,
  Times = 3,
  Symbol = 4,
  ZapfDingbats = 5,
};

/// The face of a family; Symbol and ZapfDingbats have only one.
enum class FontStyleConstants : std::int32_t {
  Regular = 1,
  Bold = 2,
  Italic = 3,
  BoldItalic = 4,
};

enum class OrientationConstants : std::int32_t {
  Portrait = 1,
  Landscape = 2,
};

/// Paper sizes in points, portrait: A3 842 x 1191, A4 595 x 842, A5 420 x 595, Executive 522 x 756,
/// Folio 595 x 935, Ledger 1224 x 792, Legal 612 x 1008, Letter 612 x 792, Tabloid 792 x 1224.
/// Ledger is the Tabloid sheet lying on its side already. The values are those that clients pass;
/// 2, 6, 10, 12 and 13 are not assigned.
enum class PaperSizeConstants : std::int32_t {
  A3 = 8,
  A4 = 9,
  A5 = 11,
  Executive = 7,
  Folio = 14,
  Ledger = 4,
  Legal = 5,
  Letter = 1,
  Tabloid = 3,
};

/// Class to access the document enumerations. It has no members of its own: an automation client
/// creates one to reach the enumerations, a C++ host may name them through it or directly.
class Enumerations {
 public:
  using Alignment = AlignmentConstants;
  using Bullet = BulletConstants;
  using Encoding = EncodingConstants;
  using FontEffect = FontEffectConstants;
  using FontNumber = FontNumberConstants;
  using FontStyle = FontStyleConstants;
  using Orientation = OrientationConstants;
  using PaperSize = PaperSizeConstants;
};

}  // namespace vellumark
