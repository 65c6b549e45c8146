// SPDX-License-Identifier: MIT
//
// From Unicode to the codes of the glyphs in the text fonts.
//
// Courier, Helvetica and Times are shown in their own standard encoding, not in a code page. So the
// em dash is passed as code 0xD0, the straight apostrophe as 0xA9 (0x27 draws a right quote) and
// the backtick as 0xC1. That encoding has accents but no accented letters: "é" becomes the letter
// and an accent that is drawn over it. A few other characters are replaced, such as "©" by "(c)"
// and "€" by "EUR".
//
//     GlyphRun run;
//     if (!AppendCharacter(U'é', run)) ...   // not in the fonts: "?" was appended
//
// How a document is given a code is the task of tools/classic/classic_output.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::tools {

/// An accent over or under the glyph at `index` of a run.
struct AccentMark {
  std::size_t index = 0;
  char accent = 0;      ///< its code
  bool raised = false;  ///< the letter is a capital or another tall one
};

struct GlyphRun {
  std::string codes;              ///< codes of the standard encoding, one byte per glyph
  std::vector<AccentMark> marks;  ///< in the order of their glyphs
};

/// Appends the character. If the fonts have no glyph for it, appends "?" and returns false. A
/// character without a shape, such as a soft hyphen, appends nothing. A combining accent is put on
/// the last glyph.
bool AppendCharacter(char32_t character, GlyphRun& run);

/// All characters of a text in UTF-8.
[[nodiscard]] GlyphRun GlyphsOf(std::string_view text);

}  // namespace vellumark::tools
