// SPDX-License-Identifier: MIT
//
// Utf8Reader: the characters of a UTF-8 text, one after the other, whatever the bytes.
//
//     for (Utf8Reader reader(text); !reader.AtEnd();) Use(reader.Next());
//
// A byte sequence that is no UTF-8 (RFC 3629: stray or missing continuation bytes, overlong forms,
// surrogates, values above U+10FFFF) reads as U+FFFD, one for each maximal part of a sequence.
#pragma once

#include <cstddef>
#include <string_view>

namespace vellumark::platform {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

class Utf8Reader {
 public:
  explicit Utf8Reader(std::string_view text) noexcept : text_(text) {}

  [[nodiscard]] bool AtEnd() const noexcept { return position_ == text_.size(); }

  /// Byte offset of the character that Next reads.
  [[nodiscard]] std::size_t Position() const noexcept { return position_; }

  /// True once a sequence that is no UTF-8 was read.
  [[nodiscard]] bool SawMalformed() const noexcept { return malformed_; }

  /// The next character. Only before the end.
  char32_t Next() noexcept;

 private:
  std::string_view text_;
  std::size_t position_ = 0;
  bool malformed_ = false;
};

}  // namespace vellumark::platform
