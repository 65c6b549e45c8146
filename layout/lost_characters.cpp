// SPDX-License-Identifier: MIT
#include "layout/lost_characters.h"

#include <cstddef>

#include "platform/utf8.h"

namespace vellumark::layout {

void LostCharacters::Add(char32_t character) {
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (surrogate || character > 0x10FFFF) character = platform::kReplacementCharacter;
  const std::size_t word = character / 64;
  const std::uint64_t bit = std::uint64_t{1} << character % 64;
  if (word >= seen_.size()) seen_.resize(word + 1);
  if ((seen_[word] & bit) != 0) return;
  if (text_.capacity() - text_.size() < 4) text_.reserve(2 * text_.size() + 4);
  platform::AppendUtf8(character, text_);
  seen_[word] |= bit;
}

void LostCharacters::RollBack(std::size_t place) noexcept {
  if (place >= text_.size()) return;
  for (platform::Utf8Reader added(std::string_view(text_).substr(place)); !added.AtEnd();) {
    const char32_t character = added.Next();
    seen_[character / 64] &= ~(std::uint64_t{1} << character % 64);
  }
  text_.resize(place);
}

void LostCharacters::Clear() noexcept {
  text_.clear();
  seen_.clear();
}

}  // namespace vellumark::layout
