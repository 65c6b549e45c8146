// SPDX-License-Identifier: MIT
#include "fonts/line_breaks.h"

#include <mutex>

#include "layout/shown_characters.h"

namespace vellumark::fonts {
namespace {

static_assert(sizeof(utf32_t) == sizeof(char32_t));

bool IsThai(char32_t character) { return character >= 0x0E01 && character <= 0x0E4E; }

bool IsHalfFlag(char32_t character) { return character >= 0x1F1E6 && character <= 0x1F1FF; }

/// libunibreak 1.1 ends the program at the letters of flags, which its rules do not know, and at
/// U+FFFF. Two such letters are a flag: an ideograph and its mark stand for them.
void ReplaceUnknown(std::u32string& text) {
  constexpr char32_t kIdeograph = 0x4E00;
  constexpr char32_t kMark = 0x0308;
  constexpr char32_t kReplacement = 0xFFFD;
  bool second = false;
  for (char32_t& character : text) {
    const bool half = IsHalfFlag(character);
    if (half) character = second ? kMark : kIdeograph;
    if (character == 0xFFFF) character = kReplacement;
    second = half && !second;
  }
}

// The library fills an index of its own on first use.
void PrepareOnce() {
  static std::once_flag prepared;
  std::call_once(prepared, [] { init_linebreak(); });
}

}  // namespace

void LineBreaks::Find(std::u32string_view text, std::vector<std::uint8_t>& breaks) {
  PrepareOnce();
  breaks.assign(text.size(), 0);
  if (text.empty()) return;
  found_.resize(text.size());
  known_.assign(text);
  ReplaceUnknown(known_);
  set_linebreaks_utf32(reinterpret_cast<const utf32_t*>(known_.data()), known_.size(), "",
                       found_.data());
  for (std::size_t i = 0; i < text.size(); ++i) {
    breaks[i] = found_[i] <= LINEBREAK_ALLOWBREAK && text[i] != layout::kSoftHyphen ? 1 : 0;
  }
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::size_t end = i;
    while (end < text.size() && IsThai(text[end])) ++end;
    if (end > i) FindInThai(text.substr(i, end - i), std::span(breaks).subspan(i, end - i));
    if (end > i) i = end - 1;
  }
  breaks.back() = 1;
}

/// Adds the ends of words inside a run of Thai letters.
void LineBreaks::FindInThai(std::u32string_view run, std::span<std::uint8_t> breaks) {
  if (!asked_for_breaker_) {
    breaker_.reset(th_brk_new(nullptr));
    asked_for_breaker_ = true;
  }
  if (!breaker_) return;
  thai_.assign(run.begin(), run.end());
  thai_.push_back(0);
  thai_breaks_.resize(run.size());
  const int count =
      th_brk_wc_find_breaks(breaker_.get(), thai_.data(), thai_breaks_.data(), thai_breaks_.size());
  for (int i = 0; i < count; ++i) {
    const int place = thai_breaks_[static_cast<std::size_t>(i)];  // the word begins there
    if (place > 0 && static_cast<std::size_t>(place) < run.size()) {
      breaks[static_cast<std::size_t>(place - 1)] = 1;
    }
  }
}

}  // namespace vellumark::fonts
