// SPDX-License-Identifier: MIT
//
// EncodedText: a text as the codes of a standard font, with its width.
//
//     EncodedText text;                            // keeps its memory for the next text
//     EncodeText("Dvořák costs 5 €", font, text);
//     for (const EncodedRun& run : text.Runs()) Show(run.encoding, run.bytes);
//     text.Width();                                // in 1/1000 em: MeasureText, the same
//
// A run is as long as its encoding has the characters; ASCII and many letters have the same code in
// WinAnsi and in Extended. What is not taken character for character:
//
//     a letter and combining marks that have one glyph       that glyph: e U+0301 is é
//     line ends, tabs and the spaces of other widths         one blank; CR LF together are one, and
//                                                            so a text may hold them. The no-break
//                                                            space U+00A0 stays itself
//     zero-width spaces and joiners, direction marks,        nothing
//       variation selectors, byte order mark
//     other characters that the font lacks, controls,        "?", and the character is in Lost;
//       bytes that are not UTF-8 (they are U+FFFD)           in ZapfDingbats a blank
//
// In Symbol and ZapfDingbats the characters U+0020 to U+00FF are the codes of that value where the
// font has one: "a" is alpha. Other characters, such as U+03B1 itself, are looked up.
//
// No kerning, no letter spacing. Both functions raise run-time error 6 for a width beyond 32 bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "layout/font.h"
#include "layout/font_face.h"
#include "layout/text_encoding.h"

namespace vellumark::layout {

/// What a run is that a ShapingSetter encoded (layout/shaping_setter.h).
struct ShapedRun {
  int font = 0;  ///< number of the loaded font whose glyphs it shows; 0: codes of a standard font
  std::span<const PlacedGlyph> glyphs;  ///< from left to right
  std::int32_t gap = 0;                 ///< free space behind the run, 1/1000 em
};

/// Consecutive codes of one encoding, or, with glyphs, the text that they show, in UTF-8.
struct EncodedRun {
  std::string_view bytes;  ///< valid until the next text is encoded
  std::int32_t width = 0;  ///< 1/1000 em
  TextEncoding encoding = TextEncoding::WinAnsi;
  bool literal = false;               ///< known to be printable ASCII without ( ) and backslash
  const ShapedRun* shaped = nullptr;  ///< null in all runs of a text, or in none
};

class EncodedText {
 public:
  /// Takes `codes` as they are for one run, without a copy; they must outlive it.
  void Borrow(std::string_view codes, std::int32_t width, bool literal = false) {
    lost_.clear();
    runs_.resize(1);
    runs_[0] = {.bytes = codes, .width = width, .literal = literal};
    width_ = width;
    size_ = codes.size();
  }

  /// All codes, one behind the other.
  [[nodiscard]] std::string_view Bytes() const noexcept {
    return runs_.empty() ? std::string_view() : std::string_view(runs_.front().bytes.data(), size_);
  }

  /// The runs in order; none for a text that shows nothing.
  [[nodiscard]] std::span<const EncodedRun> Runs() const noexcept { return runs_; }

  /// The sum of the runs' widths in 1/1000 em.
  [[nodiscard]] std::int32_t Width() const noexcept { return width_; }

  /// The characters that a reader will not see, as often as they came.
  [[nodiscard]] std::span<const char32_t> Lost() const noexcept { return lost_; }

 private:
  friend class TextEncoder;
  friend class TextComposer;

  std::unique_ptr<char[]> storage_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
  std::int32_t width_ = 0;
  std::vector<EncodedRun> runs_;
  std::vector<char32_t> lost_;

  // Of a text with glyphs.
  std::string texts_;
  std::vector<PlacedGlyph> glyphs_;
  std::vector<ShapedRun> shaped_;
};

/// Puts `utf8` into the codes of `font`. A font of no family or face has no widths and takes
/// WinAnsi and Extended.
void EncodeText(std::string_view utf8, const Font& font, EncodedText& text);

/// The widths of the codes, if `utf8` is printable ASCII and the font a Latin one, so that each
/// byte is its own code; null if not.
[[nodiscard]] const CodeWidths* PlainWidths(std::string_view utf8, const Font& font);

/// Whether `font` shows the character, or a character that looks like it (a blank, nothing).
[[nodiscard]] bool HasCharacter(char32_t character, const Font& font);

/// The width of the same in 1/1000 em, without the codes.
[[nodiscard]] std::int32_t MeasureText(std::string_view utf8, const Font& font);

}  // namespace vellumark::layout
