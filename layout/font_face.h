// SPDX-License-Identifier: MIT
//
// FontFace and FontEngine: what the core asks of font files and of scripts other than its own.
//
// The core knows the widths of the fourteen standard fonts, and no more. What a font file says, how
// Arabic letters join, in which direction a text runs and where a Chinese line may break stands
// behind these two interfaces, so that the core has no other library. The room fonts/ implements
// them; a build without it has no engine.
//
//     std::string reason;
//     const std::unique_ptr<FontFace> face = engine.Load(std::move(bytes), 0, reason);
//     std::vector<PlacedGlyph> glyphs;
//     face->Shape("fi", {}, glyphs);                       // perhaps one glyph, a ligature
//     face->Subset({0, glyphs[0].id}, "ABCDEF+Name");      // a font of these two
//
// Lengths are 1/1000 em, rounded. An object belongs to one thread at a time; nothing is shared.
// All members raise std::bad_alloc for short memory.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::layout {

/// A glyph of a run, as it is placed. Glyphs that show the same characters together, such as a
/// letter and the sign above it, are a cluster: its first glyph has the text, the others have none.
struct PlacedGlyph {
  std::uint16_t id = 0;         ///< the glyph's number in its face; 0 is what is shown for none
  std::uint16_t text_size = 0;  ///< bytes of the cluster's text, 0 behind the cluster's first glyph
  std::uint32_t text_begin = 0;  ///< where they begin in the text that was shaped
  std::int32_t advance = 0;      ///< how far behind this one the next glyph is placed
  std::int32_t dx = 0;           ///< moves this glyph only: to the right
  std::int32_t dy = 0;           ///< upwards
};

enum class Outlines : std::uint8_t { TrueType, Cff };

/// What a writer says about a face.
struct FaceFacts {
  std::string name;  ///< PostScript name; letters, digits and "-" of ASCII, at most 63
  Outlines outlines = Outlines::TrueType;
  int glyphs = 0;
  bool fixed_pitch = false;
  int italic_angle = 0;  ///< degrees, below 0 where letters lean to the right
  int ascent = 0;
  int descent = 0;  ///< below 0
  int cap_height = 0;
  int stem = 0;              ///< how wide an upright stem is, as far as the weight tells
  std::array<int, 4> box{};  ///< left, bottom, right, top around all glyphs
};

/// A script, as its four-letter tag of ISO 15924 in one number; 0 if it is not known.
using Script = std::uint32_t;

/// How a run is shaped.
struct RunFacts {
  bool right_to_left = false;
  Script script = 0;  ///< 0: that of the first letter
};

/// A font of some glyphs of a face, that a file can hold.
struct FontProgram {
  /// TrueType: a font file without the tables that no reader needs. CFF: a CID-keyed CFF table,
  /// whose character identifiers are the codes.
  std::vector<std::uint8_t> bytes;

  /// TrueType: the glyph's number in `bytes`, by code. Empty for CFF.
  std::vector<std::uint16_t> glyph_of_code;
};

class FontFace {
 public:
  FontFace() = default;
  FontFace(const FontFace&) = delete;
  FontFace& operator=(const FontFace&) = delete;
  FontFace(FontFace&&) = delete;
  FontFace& operator=(FontFace&&) = delete;
  virtual ~FontFace() = default;

  [[nodiscard]] virtual const FaceFacts& Facts() const noexcept = 0;

  /// Whether the face shows the character: by a glyph of its own, or of the letter and the mark
  /// that it is made of.
  [[nodiscard]] virtual bool Has(char32_t character) const = 0;

  /// The glyph that the character has by itself; 0 if it has none.
  [[nodiscard]] virtual std::uint16_t GlyphOf(char32_t character) const = 0;

  /// Whether the face shows the letter with the mark behind it.
  [[nodiscard]] virtual bool HasTogether(char32_t letter, char32_t mark) const = 0;

  /// Appends the glyphs for `utf8`, from left to right. Characters that the face lacks are glyph 0;
  /// those that are invisible by nature have no glyph.
  virtual void Shape(std::string_view utf8, const RunFacts& run,
                     std::vector<PlacedGlyph>& glyphs) const = 0;

  /// How far a glyph moves on by itself, which is what a font that is embedded says of it.
  [[nodiscard]] virtual std::int32_t Advance(std::uint16_t glyph) const = 0;

  /// A font of `glyphs`, whose codes are their places in the list; the first is glyph 0. Its name
  /// is `name`. Raises run-time error 13 if the face is so damaged that no font can be made of it.
  [[nodiscard]] virtual FontProgram Subset(std::span<const std::uint16_t> glyphs,
                                           std::string_view name) const = 0;
};

class FontEngine {
 public:
  FontEngine() = default;
  FontEngine(const FontEngine&) = delete;
  FontEngine& operator=(const FontEngine&) = delete;
  FontEngine(FontEngine&&) = delete;
  FontEngine& operator=(FontEngine&&) = delete;
  virtual ~FontEngine() = default;

  /// Makes a face of a TrueType or OpenType file: number `index`, counted from 0, of a collection.
  /// Returns null, and why in a few words, for bytes that are not a font or are damaged, an index
  /// that the file lacks, outlines that cannot be embedded, and a license that forbids it.
  [[nodiscard]] virtual std::unique_ptr<FontFace> Load(std::vector<std::uint8_t> bytes, int index,
                                                       std::string& reason) = 0;

  /// The embedding level of every character, by the Unicode bidirectional algorithm: those with
  /// odd levels run from right to left. Returns the level of the paragraph, which its first letter
  /// decides: 0 or 1.
  virtual std::uint8_t FindLevels(std::u32string_view text, std::vector<std::uint8_t>& levels) = 0;

  /// The script of every character; one that belongs to all scripts has that of the one before, at
  /// the front that of the first one behind.
  virtual void FindScripts(std::u32string_view text, std::vector<Script>& scripts) = 0;

  /// Whether a line may end behind each character (UAX 14, and a dictionary for Thai); always
  /// behind the last.
  virtual void FindBreaks(std::u32string_view text, std::vector<std::uint8_t>& breaks) = 0;

  /// The character that a right-to-left text shows for this one: "(" for ")".
  [[nodiscard]] virtual char32_t Mirrored(char32_t character) const = 0;

  /// Whether it is a mark that belongs to the character before it.
  [[nodiscard]] virtual bool IsMark(char32_t character) const = 0;
};

}  // namespace vellumark::layout
