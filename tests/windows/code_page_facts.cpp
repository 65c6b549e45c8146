// SPDX-License-Identifier: MIT
#include "platform/windows_code_page.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {

void CheckCodePages(Facts& facts) {
  struct Case {
    const char* fact;
    unsigned code_page;
    std::string utf8;
    std::string expected;
  };
  const std::string cyrillic = "\xD0\x96";  // U+0416
  const std::string euro = "\xE2\x82\xAC";
  std::string long_text;
  std::string long_bytes;
  for (int i = 0; i < 300; ++i) {
    long_text.append("x").append(euro);
    long_bytes.append("x\x80");
  }
  const Case cases[] = {
      {"1252 has the euro sign", 1252, "a" + euro + "\xC3\xA9", "a\x80\xE9"},
      {"1251 has Cyrillic letters", 1251, cyrillic, "\xC6"},
      {"1252 lacks them", 1252, cyrillic, "?"},
      {"no letter that looks alike", 1252, "\xC4\x80", "?"},
      {"one ? for a character beyond U+FFFF", 1252, "\xF0\x9F\x98\x80!", "?!"},
      {"one ? for each malformed part", 1252, "\xC3(\xFF", "?(?"},
      {"no character is lost between pieces", 1252, long_text, long_bytes},
      {"932 is not single-byte: 1252 instead", 932, "\xE6\x97\xA5" + euro, "?\x80"},
      {"UTF-8 is not single-byte: 1252 instead", 65001, "\xC3\xA9", "\xE9"},
  };
  for (const Case& c : cases) {
    std::string storage;
    const std::string_view bytes = platform::ToCodePage(c.code_page, c.utf8, storage);
    facts.Check(c.fact, bytes == c.expected, bytes);
  }
  std::string storage;
  const std::string plain = "plain";
  facts.Check("plain ASCII is not copied",
              QuietPlatform().ToCodePage(plain, storage).data() == plain.data());
}

}  // namespace vellumark::tests
