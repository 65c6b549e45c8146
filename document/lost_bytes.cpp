// SPDX-License-Identifier: MIT
#include "document/lost_bytes.h"

#include "layout/shown_characters.h"
#include "platform/utf8.h"

namespace vellumark::document {
namespace {

/// The characters beyond ASCII whose code in Windows-1252 is their code in the standard encoding of
/// the text fonts too.
constexpr char32_t kShownAsThemselves[] = {U'\u00A1', U'\u00A2', U'\u00A3', U'\u00A5', U'\u00A7',
                                           U'\u00AB', U'\u00B6', U'\u00BB', U'\u00BF'};

bool ShowsItself(char32_t character) {
  for (const char32_t shown : kShownAsThemselves) {
    if (shown == character) return true;
  }
  return false;
}

}  // namespace

void AddLostBytes(Platform& platform, std::string_view utf8, const layout::Font& font,
                  layout::LostCharacters& lost) {
  const std::size_t plain = layout::CountPlain(utf8);
  const bool codes = font.number == FontNumberConstants::Symbol ||
                     font.number == FontNumberConstants::ZapfDingbats;
  platform::Utf8Reader reader(utf8.substr(plain));
  std::string storage;
  for (std::size_t begin = plain; begin < utf8.size();) {
    const char32_t character = reader.Next();
    const std::size_t end = plain + reader.Position();
    const std::string_view one = utf8.substr(begin, end - begin);
    begin = end;
    if (character < 0x80) {
      if (character < ' ' || character == 0x7F) lost.Add(character);
      continue;
    }
    const bool in_code_page = platform.ToCodePage(one, storage) != "?";
    if (!in_code_page || (!codes && !ShowsItself(character))) lost.Add(character);
  }
}

}  // namespace vellumark::document
