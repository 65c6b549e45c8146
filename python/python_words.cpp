// SPDX-License-Identifier: MIT
#include "python/python_words.h"

#include <algorithm>

namespace vellumark::python {

std::string Docstring(const automation::Member& member) {
  constexpr std::size_t kWidth = 84;
  std::string text = Wrap(member.help, kWidth);
  if (member.remarks.empty()) return text;
  text += "\n\n";
  return text += Wrap(member.remarks, kWidth);
}

std::string Wrap(std::string_view text, std::size_t width) {
  std::string lines;
  std::size_t column = 0;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    if (column > 0) {
      const bool fits = column + 1 + word.size() <= width;
      lines += fits ? ' ' : '\n';
      column = fits ? column + 1 : 0;
    }
    lines += word;
    column += word.size();
  }
  return lines;
}

}  // namespace vellumark::python
