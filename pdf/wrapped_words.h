// SPDX-License-Identifier: MIT
//
// WrappedWords: words with blanks between them, in lines of at most 80 characters.
//
//     WrappedWords words("[");
//     words.Add("/omacron");
//     words.Add("]");
//     words.Text();                                // "[ /omacron ]"
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vellumark::pdf {

class WrappedWords {
 public:
  explicit WrappedWords(std::string_view first) : text_(first), line_(first.size()) {}

  void Add(std::string_view word) {
    constexpr std::size_t kLongestLine = 80;
    const bool wrap = line_ + 1 + word.size() > kLongestLine;
    text_ += wrap ? '\n' : ' ';
    line_ = wrap ? word.size() : line_ + 1 + word.size();
    text_ += word;
  }

  [[nodiscard]] const std::string& Text() const noexcept { return text_; }

 private:
  std::string text_;
  std::size_t line_;  // length of the last line
};

}  // namespace vellumark::pdf
