// SPDX-License-Identifier: MIT
#include "tools/classic/glyph_codes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "tools/shown_text.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

// The standard encoding from 0xA0 on (PDF Reference, "Latin character set and encodings"), with a
// blank for each code without a glyph. Below 0x80 it is ASCII except for the two quotes.
constexpr char32_t kFirstHighCode = 0xA0;
constexpr std::u32string_view kHighCodes =
    U" ¡¢£⁄¥ƒ§¤'“«‹›\uFB01\uFB02"
    U" –†‡· ¶•‚„”»…‰ ¿"
    U" `´ˆ˜¯˘˙¨ ˚¸ ˝˛ˇ"
    U"—               "
    U" Æ ª    ŁØŒº    "
    U" æ   ı  łøœß    ";
static_assert(kHighCodes.size() == 0x60);

constexpr char kLeftQuote = 0x60;
constexpr char kRightQuote = 0x27;
constexpr char kDotlessI = '\xF5';

/// An accent: its code, its combining character, and pairs of a letter with it and the base letter.
struct AccentRow {
  char accent;
  char32_t combining;
  std::u32string_view letters;
};

constexpr std::array<AccentRow, 13> kAccents = {{
    {'\xC1', 0x0300, U"ÀAÈEÌIÒOÙUàaèeìiòoùuǸNǹn"},
    {'\xC2', 0x0301, U"ÁAÉEÍIÓOÚUÝYáaéeíióoúuýyĆCćcĹLĺlŃNńnŔRŕrŚSśsŹZźz"},
    {'\xC3', 0x0302, U"ÂAÊEÎIÔOÛUâaêeîiôoûuĈCĉcĜGĝgĤHĥhĴJĵjŜSŝsŴWŵwŶYŷy"},
    {'\xC4', 0x0303, U"ÃAÑNÕOãañnõoĨIĩiŨUũu"},
    {'\xC5', 0x0304, U"ĀAāaĒEēeĪIīiŌOōoŪUūu"},
    {'\xC6', 0x0306, U"ĂAăaĔEĕeĞGğgĬIĭiŎOŏoŬUŭu"},
    {'\xC7', 0x0307, U"ĊCċcĖEėeĠGġgİIŻZżz"},
    {'\xC8', 0x0308, U"ÄAËEÏIÖOÜUäaëeïiöoüuÿyŸY"},
    {'\xCA', 0x030A, U"ÅAåaŮUůu"},
    {'\xCB', 0x0327, U"ÇCçcĢGĶKķkĻLļlŅNņnŖRŗrŞSşsŢTţtȘSșsȚTțt"},
    {'\xCD', 0x030B, U"ŐOőoŰUűu"},
    {'\xCE', 0x0328, U"ĄAąaĘEęeĮIįiŲUųu"},
    {'\xCF', 0x030C, U"ČCčcĎDďdĚEěeŇNňnŘRřrŠSšsŤTťtŽZžz"},
}};

/// Characters that are replaced by others, which are again Unicode.
struct Substitute {
  char32_t character;
  std::u32string_view text;
};

constexpr std::array<Substitute, 25> kSubstitutes = {{
    {U'\u00A0', U" "}, {U'\u200C', U""}, {U'\u200D', U""}, {U'\uFEFF', U""}, {U'\u2060', U""},
    {U'\uFE0F', U""},  {U'©', U"(c)"},   {U'®', U"(R)"},   {U'™', U"(TM)"},  {U'€', U"EUR"},
    {U'×', U"x"},      {U'÷', U"/"},     {U'±', U"+/-"},   {U'−', U"–"},     {U'\u2010', U"-"},
    {U'\u2011', U"-"}, {U'°', U"˚"},     {U'¼', U"1⁄4"},   {U'½', U"1⁄2"},   {U'¾', U"3⁄4"},
    {U'¦', U"|"},      {U'µ', U"u"},     {U'≤', U"<="},    {U'≥', U">="},    {U'≠', U"!="},
}};

std::optional<char> CodeOf(char32_t character) {
  if (character == U'‘') return kLeftQuote;
  if (character == U'’') return kRightQuote;
  const bool quote = character == U'\'' || character == U'`';
  if (character >= 0x20 && character < 0x7F && !quote) return static_cast<char>(character);
  const std::size_t at = kHighCodes.find(character);
  if (at == std::u32string_view::npos || character == U' ') return std::nullopt;
  return static_cast<char>(kFirstHighCode + at);
}

bool IsBelow(char accent) { return accent == '\xCB' || accent == '\xCE'; }

void AppendAccented(char32_t base, char accent, GlyphRun& run) {
  const bool tall =
      base < U'a' || std::u32string_view(U"bdfhklt").find(base) != std::u32string_view::npos;
  const bool dotted = base == U'i' && !IsBelow(accent);
  run.marks.push_back({run.codes.size(), accent, tall && !IsBelow(accent)});
  run.codes += dotted ? kDotlessI : static_cast<char>(base);
}

bool AppendAccentedLetter(char32_t character, GlyphRun& run) {
  for (const AccentRow& row : kAccents) {
    for (std::size_t i = 0; i + 1 < row.letters.size(); i += 2) {
      if (row.letters[i] != character) continue;
      AppendAccented(row.letters[i + 1], row.accent, run);
      return true;
    }
  }
  return false;
}

bool AppendCombining(char32_t character, GlyphRun& run) {
  const auto* const row =
      std::find_if(kAccents.begin(), kAccents.end(),
                   [=](const AccentRow& accent) { return accent.combining == character; });
  if (row == kAccents.end() || run.codes.empty()) return false;
  const auto base = static_cast<unsigned char>(run.codes.back());
  run.codes.pop_back();
  AppendAccented(base, row->accent, run);
  return true;
}

}  // namespace

bool AppendCharacter(char32_t character, GlyphRun& run) {
  if (const std::optional<char> code = CodeOf(character)) {
    run.codes += *code;
    return true;
  }
  if (IsBreakingBlank(character)) {
    run.codes += ' ';
    return true;
  }
  if (AppendAccentedLetter(character, run) || AppendCombining(character, run)) return true;
  const auto* const substitute =
      std::find_if(kSubstitutes.begin(), kSubstitutes.end(),
                   [=](const Substitute& row) { return row.character == character; });
  if (substitute == kSubstitutes.end()) {
    run.codes += '?';
    return false;
  }
  for (const char32_t part : substitute->text) AppendCharacter(part, run);
  return true;
}

GlyphRun GlyphsOf(std::string_view text) {
  GlyphRun run;
  for (std::size_t at = 0; at < text.size();) AppendCharacter(NextCharacter(text, at), run);
  return run;
}

}  // namespace vellumark::tools
