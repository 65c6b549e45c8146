// SPDX-License-Identifier: MIT
#include "tools/heading_slugs.h"

#include <utf8proc.h>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

bool IsKept(char32_t character) {
  switch (utf8proc_category(static_cast<utf8proc_int32_t>(character))) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ME:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_PC: return true;
    default: return character == U'-';
  }
}

std::string SlugOf(std::string_view heading) {
  std::string slug;
  for (std::size_t at = 0; at < heading.size();) {
    const char32_t character = NextCharacter(heading, at);
    if (character == U' ') {
      slug += '-';
    } else if (IsKept(character)) {
      const auto lower = utf8proc_tolower(static_cast<utf8proc_int32_t>(character));
      AppendUtf8(slug, static_cast<char32_t>(lower));
    }
  }
  return slug;
}

}  // namespace

std::string HeadingSlugs::Next(std::string_view heading) {
  const std::string slug = SlugOf(heading);
  std::string name = slug;
  while (numbers_.find(name) != numbers_.end()) {
    name = slug + "-" + std::to_string(++numbers_[slug]);
  }
  numbers_.emplace(name, 0);
  return name;
}

}  // namespace vellumark::tools
