// SPDX-License-Identifier: MIT
//
// From Unicode to the glyphs that the text fonts show.
//
// Courier, Helvetica and Times show their own standard encoding: a reader draws for a byte what
// stands there, whatever a code page would say. So the em dash is passed as code 0xD0, the straight
// apostrophe as 0xA9 (0x27 draws a right quote) and the backtick as 0xC1. The fonts have accents
// but no accented letters: "é" becomes the letter and an accent to be drawn over it. A few more
// characters are written in others, such as "(c)" and "EUR".
//
//     GlyphRun run;
//     if (!AppendCharacter(U'é', run)) ...   // not in the fonts: "?" was appended
//
// Only codes leave this file; how a writer is given a code is its own business.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vellumark::tools {

/// An accent over (or under) the glyph at `index` of a run, centred.
struct AccentMark {
  std::size_t index = 0;
  char accent = 0;      ///< its code
  bool raised = false;  ///< over a capital or another tall letter
};

struct GlyphRun {
  std::string codes;              ///< codes of the standard encoding, one byte per glyph
  std::vector<AccentMark> marks;  ///< in the order of their glyphs

  void Append(const GlyphRun& other);

  /// Glyphs [start, start + count) with their accents.
  [[nodiscard]] GlyphRun Part(std::size_t start, std::size_t count) const;
};

/// Appends the character, or "?" where the fonts have nothing for it: false then. A character
/// without a shape, such as a soft hyphen, appends nothing. A combining accent goes over the last
/// glyph.
bool AppendCharacter(char32_t character, GlyphRun& run);

/// Whether a line may be broken at this character, which shows nothing. A no-break space is none.
[[nodiscard]] bool IsBreakingBlank(char32_t character);

}  // namespace vellumark::tools
