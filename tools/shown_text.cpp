// SPDX-License-Identifier: MIT
#include "tools/shown_text.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

struct Substitute {
  char32_t character;
  std::string_view text;
};

constexpr Substitute kSubstitutes[] = {
    {U'\u2007', "\u00A0"}, {U'\u202F', "\u00A0"}, {U'\u00AD', ""}, {U'\u200B', ""},
    {U'\u2012', "–"},      {U'\u2015', "—"},      {U'′', "'"},     {U'″', "\""},
    {U'→', "->"},          {U'←', "<-"},          {U'↔', "<->"},   {U'⇒', "=>"},
    {U'─', "-"},           {U'━', "-"},           {U'═', "="},     {U'│', "|"},
    {U'┃', "|"},           {U'║', "|"},           {U'┌', "+"},     {U'┐', "+"},
    {U'└', "+"},           {U'┘', "+"},           {U'├', "+"},     {U'┤', "+"},
    {U'┬', "+"},           {U'┴', "+"},           {U'┼', "+"},     {U'╭', "+"},
    {U'╮', "+"},           {U'╰', "+"},           {U'╯', "+"},
};

}  // namespace

void AppendShown(char32_t character, std::string& text) {
  constexpr char32_t kNoneBelow = 0xAD;
  const auto* substitute = std::end(kSubstitutes);
  if (character >= kNoneBelow) {
    substitute = std::find_if(std::begin(kSubstitutes), std::end(kSubstitutes),
                              [=](const Substitute& row) { return row.character == character; });
  }
  if (substitute != std::end(kSubstitutes)) {
    text += substitute->text;
  } else {
    AppendUtf8(text, character);
  }
}

bool IsBreakingBlank(char32_t character) {
  constexpr std::u32string_view kBlanks = U" \t\n\v\f\r\u1680\u2028\u2029\u205F\u3000";
  const bool wide = character >= 0x2000 && character <= 0x200A && character != 0x2007;
  return wide || kBlanks.find(character) != std::u32string_view::npos;
}

}  // namespace vellumark::tools
