// SPDX-License-Identifier: MIT
//
// ShownCharacters: the characters of a UTF-8 text as a font is asked for them, letters composed
// with their marks.
//
//     for (ShownCharacters characters(text); !characters.AtEnd();) {
//       const std::string_view plain = characters.NextPlain();      // ASCII as it stands
//       ...
//       if (!characters.AtEnd()) Use(characters.Next());
//     }
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "layout/font.h"

namespace vellumark::layout {

class ShownCharacters {
 public:
  explicit ShownCharacters(std::string_view utf8) noexcept : text_(utf8) {}

  [[nodiscard]] bool AtEnd() const noexcept { return position_ == text_.size(); }

  /// The printable ASCII characters up to the next one that is more, or to which a mark may belong.
  [[nodiscard]] std::string_view NextPlain() noexcept;

  /// The next character, with the marks that it has a letter with; CR LF is one CR. Bytes that are
  /// no UTF-8 are U+FFFD. Only before the end.
  [[nodiscard]] char32_t Next() noexcept;

 private:
  [[nodiscard]] char32_t Decode() noexcept;

  // U+0300 to U+036F begin with one of these bytes.
  [[nodiscard]] bool MarkMayFollow() const noexcept {
    return !AtEnd() && (text_[position_] == '\xCC' || text_[position_] == '\xCD');
  }

  std::string_view text_;
  std::size_t position_ = 0;
};

/// A standard font shows it as a hyphen, a loaded one does not show it: no line ends behind it.
inline constexpr char32_t kSoftHyphen = 0xAD;

/// What stands for a character of which a font has no glyph.
enum class Appearance : std::uint8_t {
  Glyph,    ///< only its own glyph
  Blank,    ///< a space: line ends, tabs, the spaces of other widths
  Nothing,  ///< it is invisible by nature: zero-width spaces, joiners, direction marks
};

[[nodiscard]] Appearance AppearanceOf(char32_t character) noexcept;

/// `utf8` with a plain blank for each character that looks like one and for each line end, so that
/// lines can be broken there; CR LF is one. U+0085 stays in ZapfDingbats, which has a glyph at that
/// code. The result lies in `utf8` itself or in `storage`.
[[nodiscard]] std::string_view WithPlainBlanks(std::string_view utf8, const Font& font,
                                               std::string& storage);

/// How many bytes at the front of `text` are printable ASCII.
inline std::size_t CountPlain(std::string_view text) noexcept {
  constexpr std::uint64_t kEachByte = 0x0101010101010101;
  std::size_t count = 0;
  if constexpr (std::endian::native == std::endian::little) {
    for (; count + 8 <= text.size(); count += 8) {
      std::uint64_t bytes = 0;
      std::memcpy(&bytes, text.data() + count, 8);
      // The high bit of each byte that is below the blank, DEL or above; what is carried into the
      // next byte spoils only bits above the lowest one found.
      const std::uint64_t found =
          ((bytes - 0x20 * kEachByte) | (bytes + kEachByte) | bytes) & (0x80 * kEachByte);
      if (found != 0) return count + static_cast<std::size_t>(std::countr_zero(found)) / 8;
    }
  }
  while (count < text.size() && text[count] >= ' ' && text[count] <= '~') ++count;
  return count;
}

inline std::string_view ShownCharacters::NextPlain() noexcept {
  const std::size_t start = position_;
  position_ += CountPlain(text_.substr(start));
  if (position_ > start && MarkMayFollow()) --position_;
  return text_.substr(start, position_ - start);
}

}  // namespace vellumark::layout
