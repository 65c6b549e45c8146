// SPDX-License-Identifier: MIT
//
// DashNumbers: a dash pattern as a part of a LineBuffer line, sure to be numbers.
//
//     lines.Append('[', DashNumbers("3 2"), "] 0 d");          // [3 2] 0 d
//     lines.Append('[', DashNumbers("3 ] pop"), "] 0 d");      // [] 0 d, a solid line
//
// A pattern is a list of lengths in points, each of at most nine digits and a
// point, separated by blanks; at least one of them is above 0, and all together have at most 200
// characters. Any other text is a solid line.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

namespace vellumark::layout {

class DashNumbers {
 public:
  explicit constexpr DashNumbers(std::string_view dash) noexcept
      : dash_(IsPattern(dash) ? dash : std::string_view()) {}

  [[nodiscard]] constexpr std::string_view view() const noexcept { return dash_; }

  [[nodiscard]] std::size_t MaxSize() const noexcept { return dash_.size(); }
  char* Write(char* to) const noexcept {
    if (!dash_.empty()) std::memcpy(to, dash_.data(), dash_.size());
    return to + dash_.size();
  }

 private:
  /// The longest pattern: PostScript lines stay below 255 bytes.
  static constexpr std::size_t kLongest = 200;

  static constexpr bool IsPattern(std::string_view dash) noexcept {
    if (dash.size() > kLongest) return false;
    bool above_zero = false;
    std::size_t at = 0;
    while (at < dash.size()) {
      if (dash[at] == ' ') {
        ++at;
        continue;
      }
      std::size_t digits = 0;
      std::size_t points = 0;
      for (; at < dash.size() && dash[at] != ' '; ++at) {
        const char c = dash[at];
        if (c == '.') {
          ++points;
        } else if (c >= '0' && c <= '9') {
          ++digits;
          above_zero |= c != '0';
        } else {
          return false;
        }
      }
      if (digits == 0 || digits > 9 || points > 1) return false;
    }
    return above_zero;
  }

  std::string_view dash_;
};

}  // namespace vellumark::layout
