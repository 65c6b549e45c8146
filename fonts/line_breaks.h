// SPDX-License-Identifier: MIT
//
// LineBreaks: where a line may end (UAX 14, by libunibreak), and between the words of a Thai text,
// which has no blanks there (libthai's dictionary, loaded with the first Thai text).
//
//     LineBreaks breaks;
//     breaks.Find(U"a b", found);                  // {0, 1, 1}: behind the blank and at the end
//
// A line does not end behind a soft hyphen, because no hyphen would be shown. Without libthai's
// dictionary a Thai text is broken at its blanks only.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "fonts/font_libraries.h"

namespace vellumark::fonts {

class LineBreaks {
 public:
  /// 1 for each character behind which a line may end, 0 for the others; 1 for the last.
  void Find(std::u32string_view text, std::vector<std::uint8_t>& breaks);

 private:
  void FindInThai(std::u32string_view run, std::span<std::uint8_t> breaks);

  struct Delete {
    void operator()(ThBrk* breaker) const { th_brk_delete(breaker); }
  };

  std::u32string known_;
  std::vector<char> found_;
  std::vector<thwchar_t> thai_;
  std::vector<int> thai_breaks_;
  std::unique_ptr<ThBrk, Delete> breaker_;
  bool asked_for_breaker_ = false;
};

}  // namespace vellumark::fonts
