// SPDX-License-Identifier: MIT
//
// Utf8Reader: the characters of a UTF-8 text, one after the other, whatever the bytes.
//
//     for (Utf8Reader reader(text); !reader.AtEnd();) Use(reader.Next());
//
// A byte sequence that is not UTF-8 (RFC 3629: stray or missing continuation bytes, overlong forms,
// surrogates, values above U+10FFFF) reads as U+FFFD, one for each maximal part of a sequence.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace vellumark::platform {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Whether the text is plain ASCII, which is the same in UTF-8 and in every code page here.
[[nodiscard]] inline bool IsAscii(std::string_view text) noexcept {
  const char* p = text.data();
  std::size_t left = text.size();
  for (; left >= 8; left -= 8, p += 8) {
    std::uint64_t eight = 0;
    std::memcpy(&eight, p, 8);
    if ((eight & 0x8080808080808080U) != 0) return false;
  }
  return std::all_of(p, p + left, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

class Utf8Reader {
 public:
  explicit Utf8Reader(std::string_view text) noexcept : text_(text) {}

  [[nodiscard]] bool AtEnd() const noexcept { return position_ == text_.size(); }

  /// Byte offset of the character that Next reads.
  [[nodiscard]] std::size_t Position() const noexcept { return position_; }

  /// Whether a sequence that is not UTF-8 was read.
  [[nodiscard]] bool SawMalformed() const noexcept { return malformed_; }

  /// Returns the next character. Must not be called at the end.
  char32_t Next() noexcept;

 private:
  std::string_view text_;
  std::size_t position_ = 0;
  bool malformed_ = false;
};

/// Appends a Unicode character; not a surrogate.
void AppendUtf8(char32_t character, std::string& text);

}  // namespace vellumark::platform
