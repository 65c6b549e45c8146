// SPDX-License-Identifier: MIT
//
// ShapedText: a text of any script, taken apart for shaping.
//
//     ShapedText text;
//     text.Analyze("abc שלום", font, fonts);             // levels, scripts, fonts
//     text.FindPieces(fonts);                           // where its lines may end
//     text.ItemsOf(begin, end, items);                  // of a line, as they stand from the left
//
// The direction of the whole is that of its first letter. A character is shown by the current font,
// or by the first of the fallbacks that has it and the marks behind it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "layout/font_collection.h"

namespace vellumark::layout {

/// Consecutive characters of one direction, script and font.
struct TextItem {
  std::size_t begin = 0;  // characters
  std::size_t end = 0;
  std::uint8_t level = 0;
  int font = 0;
  Script script = 0;

  [[nodiscard]] bool RightToLeft() const noexcept { return level % 2 != 0; }
};

/// What no line is broken in; the blanks behind it are not seen at the end of a line.
struct TextPiece {
  std::size_t begin = 0;  // characters
  std::size_t solid_end = 0;
  std::size_t end = 0;
  std::int64_t solid_width = 0;  ///< 1/1000 em, for whoever measures
  std::int64_t blank_width = 0;
};

class ShapedText {
 public:
  /// The font of a character that no font has.
  static constexpr int kNoFont = -1;

  void Analyze(std::string_view utf8, const Font& font, const FontCollection& fonts);

  /// Finds the pieces of a text that was analyzed; one without characters is one empty piece.
  void FindPieces(const FontCollection& fonts);
  [[nodiscard]] std::vector<TextPiece>& Pieces() noexcept { return pieces_; }
  [[nodiscard]] const std::vector<TextPiece>& Pieces() const noexcept { return pieces_; }

  [[nodiscard]] std::size_t Size() const noexcept { return characters_.size(); }
  [[nodiscard]] char32_t At(std::size_t i) const { return characters_[i]; }
  /// Whether what stands between this character and the next one runs from right to left.
  [[nodiscard]] bool RunsRightToLeftBehind(std::size_t i) const {
    return std::min(levels_[i], levels_[i + 1]) % 2 != 0;
  }
  [[nodiscard]] bool RunsRightToLeft() const noexcept { return base_level_ % 2 != 0; }

  /// The bytes of some characters.
  [[nodiscard]] std::string_view Utf8(std::size_t begin, std::size_t end) const {
    return std::string_view(text_).substr(offsets_[begin], offsets_[end] - offsets_[begin]);
  }

  /// Whether what is shaped together ends before character i: at blanks, and where a line may end.
  [[nodiscard]] bool EndsBefore(std::size_t i) const {
    return characters_[i] == ' ' || characters_[i - 1] == ' ' ||
           (!breaks_.empty() && breaks_[i - 1] != 0);
  }

  /// The items of a line, in the order in which they are seen from the left.
  void ItemsOf(std::size_t begin, std::size_t end, std::vector<TextItem>& items) const;

 private:
  void Decode(std::string_view utf8);
  void FindFonts(const Font& font, const FontCollection& fonts);
  [[nodiscard]] int FontOf(std::size_t begin, std::size_t end, const Font& font,
                           const FontCollection& fonts) const;

  std::string text_;
  std::u32string characters_;
  std::vector<std::size_t> offsets_;  // in bytes; one more than there are characters
  std::uint8_t base_level_ = 0;
  std::vector<std::uint8_t> levels_;
  std::vector<Script> scripts_;
  std::vector<int> fonts_;
  std::vector<std::uint8_t> breaks_;  // empty until FindPieces
  std::vector<TextPiece> pieces_;
};

/// Whether a text may have characters that run from right to left, or that say so.
[[nodiscard]] bool MayRunRightToLeft(std::u32string_view text) noexcept;

}  // namespace vellumark::layout
