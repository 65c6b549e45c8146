// SPDX-License-Identifier: MIT
#include "layout/shaping_setter.h"

#include <algorithm>
#include <string>

#include "layout/shown_characters.h"
#include "layout/text_composer.h"
#include "platform/utf8.h"

namespace vellumark::layout {
namespace {

/// Letters up to the Armenian ones, signs of theirs excepted that direct their neighbors: a text of
/// them runs from left to right.
bool IsPlain(std::string_view utf8) {
  constexpr std::uint8_t kFirstBeyond = 0xD6;
  return std::none_of(utf8.begin(), utf8.end(), [](char byte) {
    const auto value = static_cast<std::uint8_t>(byte);
    return value >= kFirstBeyond || value < ' ' || value == 0x7F;
  });
}

}  // namespace

/// Calls `use` with each word of a text that the current font shows alone, and where it begins; a
/// blank is a word. False if the text needs to be analyzed.
template <class Use>
bool ShapingSetter::ForEachPlainWord(std::string_view text, const Font& font,
                                     const Use& use) const {
  const FontFace* const face = fonts_.Face(font);
  if (face == nullptr || !IsPlain(text)) return false;
  const int number = static_cast<int>(font.number);
  for (std::size_t begin = 0; begin < text.size();) {
    std::size_t end = begin + 1;
    if (text[begin] != ' ') end = std::min(text.find(' ', end), text.size());
    const std::string_view utf8 = text.substr(begin, end - begin);
    ShapedWord word = kept_->words.Find(utf8, number, {});
    if (word.width < 0) {
      for (platform::Utf8Reader reader(utf8); !reader.AtEnd();) {
        if (!face->Has(reader.Next())) return false;
      }
      word = kept_->words.Shape(utf8, number, *face, {});
    }
    use(word, begin);
    begin = end;
  }
  return true;
}

bool ShapingSetter::MeasurePlain(std::string_view text, const Font& font,
                                 std::int64_t& width) const {
  width = 0;
  return ForEachPlainWord(text, font,
                          [&](const ShapedWord& word, std::size_t) { width += word.width; });
}

bool ShapingSetter::EncodePlain(std::string_view text, const Font& font,
                                EncodedText& encoded) const {
  TextComposer composer(encoded);
  composer.BeginGlyphs(static_cast<int>(font.number), text);
  const bool plain = ForEachPlainWord(text, font, [&](const ShapedWord& word, std::size_t begin) {
    composer.AddGlyphs(word.glyphs, begin);
  });
  if (!plain) return false;
  composer.EndGlyphs();
  composer.Finish();
  return true;
}

bool ShapingSetter::Shapes(std::string_view text, const Font& font) const {
  if (fonts_.Face(font) != nullptr) return true;
  if (fonts_.Fallbacks().empty()) return false;
  for (ShownCharacters characters(text); !characters.AtEnd();) {
    static_cast<void>(characters.NextPlain());
    if (characters.AtEnd()) return false;
    const char32_t character = characters.Next();
    if (HasCharacter(character, font)) continue;
    for (const int number : fonts_.Fallbacks()) {
      if (fonts_.Face(number)->Has(character)) return true;
    }
  }
  return false;
}

const CodeWidths* ShapingSetter::ByteWidths(std::string_view text, const Font& font) const {
  return fonts_.Face(font) != nullptr ? nullptr : PlainWidths(text, font);
}

std::int32_t ShapingSetter::Measure(std::string_view text, const Font& font) const {
  if (!Shapes(text, font)) return MeasureText(text, font);
  std::int64_t width = 0;
  if (!MeasurePlain(text, font, width)) {
    kept_->text.Analyze(text, font, fonts_);
    width = MeasureRange(kept_->text, 0, kept_->text.Size(), font);
  }
  return CheckedWidth(width);
}

/// Encodes a line of an analyzed text, or measures it.
class ShapingSetter::LineEncoder {
 public:
  LineEncoder(const ShapingSetter& setter, const ShapedText& text, const Font& font)
      : fonts_(setter.fonts_), kept_(*setter.kept_), text_(text), font_(font) {}

  /// Spreads `spare` over the gaps between `begin` and `end`.
  void Spread(std::size_t begin, std::size_t end, std::int64_t spare) {
    const auto is_blank = [&](std::size_t i) { return text_.At(i) == ' '; };
    std::int64_t blanks = 0;
    for (std::size_t i = begin; i < end; ++i) blanks += is_blank(i) ? 1 : 0;
    gaps_.assign(end - begin, 0);
    first_gap_ = begin;
    std::int64_t left = blanks;
    if (blanks == 0) {
      for (std::size_t i = begin + 1; i < end; ++i) left += text_.EndsBefore(i) ? 1 : 0;
    }
    // What a division leaves over goes to the gaps behind. None is left at the last character.
    for (std::size_t i = begin; left > 0; ++i) {
      const bool gap = blanks > 0 ? is_blank(i) : text_.EndsBefore(i + 1);
      if (!gap) continue;
      const std::int64_t part = spare / left--;
      // Between two characters that run from right to left, the second one is shown first.
      const bool second = blanks == 0 && text_.RunsRightToLeftBehind(i);
      gaps_[i - begin + (second ? 1 : 0)] = static_cast<std::int32_t>(part);
      spare -= part;
    }
  }

  void Encode(std::size_t begin, std::size_t end, EncodedText& encoded) {
    TextComposer composer(encoded);
    text_.ItemsOf(begin, end, kept_.items);
    for (const TextItem& item : kept_.items) {
      if (item.font > 0) {
        EncodeGlyphs(item, composer);
      } else if (item.font == 0) {
        EncodeCodes(item, composer);
      } else {
        EncodeLost(item, composer);
      }
    }
    composer.Finish();
  }

  std::int64_t Measure(std::size_t begin, std::size_t end) {
    std::int64_t width = 0;
    text_.ItemsOf(begin, end, kept_.items);
    for (const TextItem& item : kept_.items) {
      if (item.font > 0) {
        ForEachWord(
            item, [&](std::size_t from, std::size_t to) { width += WordOf(item, from, to).width; });
      } else if (item.font == 0) {
        width += MeasureText(text_.Utf8(item.begin, item.end), font_);
      } else {
        width += LostWord().width * static_cast<std::int64_t>(CountLost(item));
      }
    }
    return width;
  }

 private:
  [[nodiscard]] std::int32_t GapBehind(std::size_t character) const {
    return gaps_.empty() ? 0 : gaps_[character - first_gap_];
  }

  [[nodiscard]] ShapedWord WordOf(const TextItem& item, std::size_t from, std::size_t to) {
    return kept_.words.Shape(text_.Utf8(from, to), item.font, *fonts_.Face(item.font),
                             {item.RightToLeft(), item.script});
  }

  /// Calls `use` with the words of an item, from the left.
  template <class Use>
  void ForEachWord(const TextItem& item, const Use& use) {
    std::vector<std::size_t>& cuts = kept_.cuts;
    cuts.assign(1, item.begin);
    for (std::size_t i = item.begin + 1; i < item.end; ++i) {
      if (text_.EndsBefore(i)) cuts.push_back(i);
    }
    cuts.push_back(item.end);
    if (item.RightToLeft()) {
      for (std::size_t i = cuts.size() - 1; i > 0; --i) use(cuts[i - 1], cuts[i]);
    } else {
      for (std::size_t i = 1; i < cuts.size(); ++i) use(cuts[i - 1], cuts[i]);
    }
  }

  void EncodeGlyphs(const TextItem& item, TextComposer& composer) {
    const std::string_view text = text_.Utf8(item.begin, item.end);
    composer.BeginGlyphs(item.font, text);
    ForEachWord(item, [&](std::size_t from, std::size_t to) {
      const std::string_view word = text_.Utf8(from, to);
      composer.AddGlyphs(WordOf(item, from, to).glyphs,
                         static_cast<std::size_t>(word.data() - text.data()));
      composer.AddGlyphGap(GapBehind(to - 1));
    });
    composer.EndGlyphs();
  }

  /// What a standard font shows, cut at the gaps.
  void EncodeCodes(const TextItem& item, TextComposer& composer) {
    if (item.RightToLeft()) {
      std::string turned;
      for (std::size_t i = item.end; i > item.begin; --i) {
        platform::AppendUtf8(fonts_.Engine()->Mirrored(text_.At(i - 1)), turned);
        if (GapBehind(i - 1) == 0) continue;
        composer.AddCodes(turned, font_, GapBehind(i - 1));
        turned.clear();
      }
      composer.AddCodes(turned, font_, 0);
      return;
    }
    for (std::size_t from = item.begin, i = item.begin; i < item.end; ++i) {
      if (GapBehind(i) == 0 && i + 1 < item.end) continue;
      composer.AddCodes(text_.Utf8(from, i + 1), font_, GapBehind(i));
      from = i + 1;
    }
  }

  [[nodiscard]] std::size_t CountLost(const TextItem& item) const {
    std::size_t count = 0;
    for (std::size_t i = item.begin; i < item.end; ++i) {
      count += AppearanceOf(text_.At(i)) == Appearance::Glyph ? 1 : 0;
    }
    return count;
  }

  [[nodiscard]] ShapedWord LostWord() {
    return kept_.words.Shape("?", static_cast<int>(font_.number), *fonts_.Face(font_), {});
  }

  void EncodeLost(const TextItem& item, TextComposer& composer) {
    composer.BeginGlyphs(static_cast<int>(font_.number), std::string(CountLost(item), '?'));
    std::size_t lost = 0;
    for (std::size_t i = item.begin; i < item.end; ++i) {
      if (AppearanceOf(text_.At(i)) == Appearance::Glyph) {
        composer.AddLost(text_.At(i));
        composer.AddGlyphs(LostWord().glyphs, lost++);
      }
      composer.AddGlyphGap(GapBehind(i));
    }
    composer.EndGlyphs();
  }

  const FontCollection& fonts_;
  Kept& kept_;
  const ShapedText& text_;
  const Font font_;
  std::vector<std::int32_t> gaps_;  // behind each character
  std::size_t first_gap_ = 0;
};

std::int64_t ShapingSetter::MeasureRange(const ShapedText& text, std::size_t begin, std::size_t end,
                                         const Font& font) const {
  return LineEncoder(*this, text, font).Measure(begin, end);
}

void ShapingSetter::Encode(std::string_view text, const Font& font, EncodedText& encoded) const {
  if (!Shapes(text, font)) {
    EncodeText(text, font, encoded);
    return;
  }
  if (EncodePlain(text, font, encoded)) return;
  kept_->text.Analyze(text, font, fonts_);
  LineEncoder(*this, kept_->text, font).Encode(0, kept_->text.Size(), encoded);
}

void ShapingSetter::Prepare(std::string_view text, const Font& font, ShapedText& paragraph) const {
  paragraph.Analyze(text, font, fonts_);
  paragraph.FindPieces(fonts_);
  for (TextPiece& piece : paragraph.Pieces()) {
    piece.solid_width = MeasureRange(paragraph, piece.begin, piece.solid_end, font);
    piece.blank_width = MeasureRange(paragraph, piece.solid_end, piece.end, font);
  }
}

void ShapingSetter::EncodeLine(const ShapedText& paragraph, const LineOfPieces& line,
                               const Font& font, EncodedText& encoded) const {
  LineEncoder encoder(*this, paragraph, font);
  const std::size_t begin = paragraph.Pieces()[line.first].begin;
  const std::size_t end = paragraph.Pieces()[line.end - 1].solid_end;
  if (line.spare > 0) encoder.Spread(begin, end, line.spare);
  encoder.Encode(begin, end, encoded);
}

}  // namespace vellumark::layout
