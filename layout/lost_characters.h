// SPDX-License-Identifier: MIT
//
// LostCharacters: which characters of a document its readers will not see as themselves.
//
//     LostCharacters lost;
//     lost.Add(text.Lost());
//     lost.Text();                      // "бд": each once, in the order of their appearance
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vellumark::layout {

class LostCharacters {
 public:
  /// Adds a Unicode character; a value that is none (a surrogate, above U+10FFFF) counts as U+FFFD.
  void Add(char32_t character);
  void Add(std::span<const char32_t> characters) {
    for (const char32_t character : characters) Add(character);
  }

  void Clear() noexcept;

  /// A place to go back to.
  [[nodiscard]] std::size_t Here() const noexcept { return text_.size(); }

  /// Forgets what was added since Here() returned `place`.
  void RollBack(std::size_t place) noexcept;

  [[nodiscard]] bool Empty() const noexcept { return text_.empty(); }

  /// Each character once, in the order of their appearance, in UTF-8.
  [[nodiscard]] const std::string& Text() const noexcept { return text_; }

 private:
  std::string text_;
  std::vector<std::uint64_t> seen_;  // a bit for each character up to the last so far
};

}  // namespace vellumark::layout
