// SPDX-License-Identifier: MIT
#include "tools/classic/ps_escapes.h"

#include <algorithm>

#include "tools/utf8_text.h"

namespace vellumark::tools {

std::string EscapePsPageText(std::string_view codes) {
  std::string escaped;
  escaped.reserve(codes.size());
  for (const char code : codes) {
    if (IsEscapedInPs(code)) escaped += '\\';
    AppendUtf8(escaped, static_cast<unsigned char>(code));
  }
  return escaped;
}

std::string EscapePsProperty(std::string_view text) {
  const auto is_control = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
  std::string escaped(text);
  std::replace_if(escaped.begin(), escaped.end(), is_control, ' ');
  return escaped;
}

}  // namespace vellumark::tools
