// SPDX-License-Identifier: MIT
#include "layout/encoded_text.h"

#include <algorithm>
#include <array>

#include "layout/glyphs/glyph_tables.h"
#include "layout/plain_text.h"
#include "layout/shown_characters.h"

namespace vellumark::layout {
namespace {

constexpr char32_t kNoBreakSpace = 0xA0;

// The codes of a character in WinAnsi and in Extended; 0 where it has none.
struct LatinCodes {
  std::uint8_t win_ansi = 0;
  std::uint8_t extended = 0;
};

// The Basic Multilingual Plane in pages of 64 characters, of which all empty ones are page 0.
constexpr std::size_t kPageSize = 64;
constexpr std::size_t kPages = 0x10000 / kPageSize;

constexpr std::size_t kUsedPages = [] {
  std::array<bool, kPages> used{};
  std::size_t count = 1;
  for (const LatinGlyph& row : kLatinGlyphs) {
    bool& page = used[row.character / kPageSize];
    if (!page) ++count;
    page = true;
  }
  return count;
}();

struct LatinPages {
  std::array<std::uint8_t, kPages> page_of{};
  std::array<std::array<LatinCodes, kPageSize>, kUsedPages> codes{};
};

constexpr LatinPages kLatinPages = [] {
  LatinPages pages;
  std::uint8_t last = 0;
  for (const LatinGlyph& row : kLatinGlyphs) {
    std::uint8_t& page = pages.page_of[row.character / kPageSize];
    if (page == 0) page = ++last;
    pages.codes[page][row.character % kPageSize] = {row.win_ansi, row.extended};
  }
  return pages;
}();

LatinCodes LatinCodesOf(char32_t character) {
  if (character > 0xFFFF) return {};
  const std::size_t page = kLatinPages.page_of[character / kPageSize];
  return kLatinPages.codes[page][character % kPageSize];
}

// A font with a built-in encoding: the codes that have a glyph, and the rows by their characters.
template <std::size_t kCount>
struct BuiltInFont {
  constexpr explicit BuiltInFont(const BuiltInGlyph (&rows)[kCount]) {
    std::copy(std::begin(rows), std::end(rows), by_character.begin());
    std::sort(by_character.begin(), by_character.end(), [](const auto& a, const auto& b) {
      return a.character != b.character ? a.character < b.character : a.code < b.code;
    });
    for (const BuiltInGlyph& row : rows) has_glyph[row.code] = true;
  }

  // The code for a character; 0 where there is none.
  [[nodiscard]] std::uint8_t CodeOf(char32_t character) const {
    if (character == kNoBreakSpace) return ' ';
    if (character < has_glyph.size() && has_glyph[character]) {
      return static_cast<std::uint8_t>(character);
    }
    const auto row = std::lower_bound(
        by_character.begin(), by_character.end(), character,
        [](const BuiltInGlyph& one, char32_t sought) { return one.character < sought; });
    return row != by_character.end() && row->character == character ? row->code : 0;
  }

  std::array<BuiltInGlyph, kCount> by_character{};
  std::array<bool, 256> has_glyph{};
};

constexpr BuiltInFont kSymbol(kSymbolGlyphs);
constexpr BuiltInFont kZapfDingbats(kZapfDingbatsGlyphs);

bool IsBuiltIn(const Font& font) {
  return font.number == FontNumberConstants::Symbol ||
         font.number == FontNumberConstants::ZapfDingbats;
}

TextEncoding FirstEncodingOf(const Font& font) {
  switch (font.number) {
    case FontNumberConstants::Symbol: return TextEncoding::Symbol;
    case FontNumberConstants::ZapfDingbats: return TextEncoding::ZapfDingbats;
    default: return TextEncoding::WinAnsi;
  }
}

std::uint8_t BuiltInCodeOf(char32_t character, const Font& font) {
  return font.number == FontNumberConstants::Symbol ? kSymbol.CodeOf(character)
                                                    : kZapfDingbats.CodeOf(character);
}

// What is shown in place of a character without a glyph: a code of all encodings, 0 for nothing.
struct StandIn {
  std::uint8_t code = 0;
  bool lost = false;
};

StandIn StandInFor(char32_t character, const Font& font) {
  switch (AppearanceOf(character)) {
    case Appearance::Blank: return {' ', false};
    case Appearance::Nothing: return {0, false};
    case Appearance::Glyph: break;
  }
  // At the code of "?" ZapfDingbats has a cross.
  const bool dingbats = font.number == FontNumberConstants::ZapfDingbats;
  return {static_cast<std::uint8_t>(dingbats ? ' ' : '?'), true};
}

}  // namespace

// Fills an EncodedText. A text never has more codes than bytes.
class TextEncoder {
 public:
  TextEncoder(std::string_view utf8, const Font& font, EncodedText& text)
      : font_(font), text_(text), encoding_(FirstEncodingOf(font)) {
    if (text.capacity_ < utf8.size()) {
      const std::size_t capacity = std::max(utf8.size(), 2 * text.capacity_);
      text.storage_.reset(new char[capacity]);
      text.capacity_ = capacity;
    }
    text.runs_.clear();
    text.lost_.clear();
    to_ = run_start_ = text.storage_.get();
    widths_ = &WidthsOf(font, encoding_);
  }

  // Printable ASCII, in a Latin font.
  void AddPlain(std::string_view plain) {
    to_ = std::copy(plain.begin(), plain.end(), to_);
    run_width_ += SumOfWidths(plain, *widths_);
  }

  void AddLatin(char32_t character) {
    LatinCodes codes = LatinCodesOf(character);
    if ((codes.win_ansi | codes.extended) == 0) {
      const std::uint8_t code = StandInOf(character);
      if (code == 0) return;
      codes = {code, code};
    }
    if (CodeOf(codes) == 0) Switch();
    if (codes.win_ansi != codes.extended) run_fits_both_ = false;
    AddCode(CodeOf(codes));
  }

  void AddBuiltIn(char32_t character) {
    std::uint8_t code = BuiltInCodeOf(character, font_);
    if (code == 0) code = StandInOf(character);
    if (code != 0) AddCode(code);
  }

  void Finish() {
    EndRun();
    text_.size_ = static_cast<std::size_t>(to_ - text_.storage_.get());
    std::int64_t sum = 0;
    for (const EncodedRun& run : text_.runs_) sum += run.width;
    text_.width_ = CheckedWidth(sum);
  }

 private:
  // The stand-in's code; a lost character is noted.
  std::uint8_t StandInOf(char32_t character) {
    const StandIn stand_in = StandInFor(character, font_);
    if (stand_in.lost) text_.lost_.push_back(character);
    return stand_in.code;
  }

  [[nodiscard]] std::uint8_t CodeOf(LatinCodes codes) const {
    return encoding_ == TextEncoding::WinAnsi ? codes.win_ansi : codes.extended;
  }

  void AddCode(std::uint8_t code) {
    *to_++ = static_cast<char>(code);
    run_width_ += (*widths_)[code];
  }

  // Goes to the other Latin encoding, with the whole run if that is right in both.
  void Switch() {
    if (!run_fits_both_) EndRun();
    encoding_ = encoding_ == TextEncoding::WinAnsi ? TextEncoding::Extended : TextEncoding::WinAnsi;
    widths_ = &WidthsOf(font_, encoding_);
  }

  void EndRun() {
    const auto size = static_cast<std::size_t>(to_ - run_start_);
    if (size == 0) return;
    text_.runs_.push_back({{run_start_, size}, CheckedWidth(run_width_), encoding_});
    run_start_ = to_;
    run_width_ = 0;
    run_fits_both_ = true;
  }

  const Font font_;
  EncodedText& text_;
  TextEncoding encoding_;
  const CodeWidths* widths_ = nullptr;
  char* to_ = nullptr;
  char* run_start_ = nullptr;
  std::int64_t run_width_ = 0;
  bool run_fits_both_ = true;
};

const CodeWidths* PlainWidths(std::string_view utf8, const Font& font) {
  if (IsBuiltIn(font) || CountPlain(utf8) != utf8.size()) return nullptr;
  return &WidthsOf(font, TextEncoding::WinAnsi);
}

bool HasCharacter(char32_t character, const Font& font) {
  if (AppearanceOf(character) != Appearance::Glyph || (character >= ' ' && character <= '~')) {
    return true;
  }
  if (IsBuiltIn(font)) return BuiltInCodeOf(character, font) != 0;
  const LatinCodes codes = LatinCodesOf(character);
  return (codes.win_ansi | codes.extended) != 0;
}

void EncodeText(std::string_view utf8, const Font& font, EncodedText& text) {
  const PlainText read = utf8.empty() ? PlainText() : ReadPlain(utf8, font);
  if (read.plain) return text.Borrow(utf8, CheckedWidth(read.sum), read.literal);
  TextEncoder encoder(utf8, font, text);
  ShownCharacters characters(utf8);
  if (IsBuiltIn(font)) {
    while (!characters.AtEnd()) encoder.AddBuiltIn(characters.Next());
  } else {
    while (!characters.AtEnd()) {
      encoder.AddPlain(characters.NextPlain());
      if (!characters.AtEnd()) encoder.AddLatin(characters.Next());
    }
  }
  encoder.Finish();
}

std::int32_t MeasureText(std::string_view utf8, const Font& font) {
  if (const PlainText read = ReadPlain(utf8, font); read.plain) return CheckedWidth(read.sum);
  // A character is as wide in one Latin encoding as in the other.
  const CodeWidths& widths = WidthsOf(font, FirstEncodingOf(font));
  const bool built_in = IsBuiltIn(font);
  const CodeWidths& extended = built_in ? widths : WidthsOf(font, TextEncoding::Extended);
  std::int64_t sum = 0;
  for (ShownCharacters characters(utf8); !characters.AtEnd();) {
    if (!built_in) {
      sum += SumOfWidths(characters.NextPlain(), widths);
      if (characters.AtEnd()) break;
    }
    const char32_t character = characters.Next();
    LatinCodes codes =
        built_in ? LatinCodes{BuiltInCodeOf(character, font), 0} : LatinCodesOf(character);
    if ((codes.win_ansi | codes.extended) == 0) {
      codes.win_ansi = StandInFor(character, font).code;
    }
    sum += codes.win_ansi != 0 ? widths[codes.win_ansi] : extended[codes.extended];
  }
  return CheckedWidth(sum);
}

}  // namespace vellumark::layout
