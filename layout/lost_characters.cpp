// SPDX-License-Identifier: MIT
#include "layout/lost_characters.h"

#include <cstddef>

#include "platform/utf8.h"

namespace vellumark::layout {
namespace {

void AppendUtf8(char32_t character, std::string& text) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
  const auto continuation = [&](int shift) { append(0x80U | (character >> shift & 0x3FU)); };
  if (character < 0x80) {
    append(character);
  } else if (character < 0x800) {
    append(0xC0U | character >> 6);
    continuation(0);
  } else if (character < 0x10000) {
    append(0xE0U | character >> 12);
    continuation(6);
    continuation(0);
  } else {
    append(0xF0U | character >> 18);
    continuation(12);
    continuation(6);
    continuation(0);
  }
}

}  // namespace

void LostCharacters::Add(char32_t character) {
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (surrogate || character > 0x10FFFF) character = platform::kReplacementCharacter;
  const std::size_t word = character / 64;
  const std::uint64_t bit = std::uint64_t{1} << character % 64;
  if (word >= seen_.size()) seen_.resize(word + 1);
  if ((seen_[word] & bit) != 0) return;
  if (text_.capacity() - text_.size() < 4) text_.reserve(2 * text_.size() + 4);
  AppendUtf8(character, text_);
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
