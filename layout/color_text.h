// SPDX-License-Identifier: MIT
//
// ColorText: a color as the operand text that is pasted into page content.
//
// A color is held as it is written: red, green and blue, each the byte divided by 255 with three
// decimals, a point as separator whatever the locale, and every ".000" taken away.
//
//     FormatColor(255, 128, 0).view()      // "1 0.502 0"
//     ParseColor("1 0.502 0")              // {255, 128, 0}
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vellumark::layout {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

/// Three color operands of at most five characters each, held without allocation. Empty before
/// Create.
class ColorText {
 public:
  ColorText() = default;

  /// In place: a color that is made first and copied then waits for its own stores.
  void Set(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept;

  [[nodiscard]] std::string_view view() const noexcept { return {text_.data(), size_}; }

  /// The first operand.
  [[nodiscard]] std::string_view First() const noexcept { return view().substr(0, size_ / 3U); }

  /// Whether the three operands are the same.
  [[nodiscard]] bool IsGray() const noexcept { return gray_; }

  // A part of a LineBuffer line.
  [[nodiscard]] static constexpr std::size_t MaxSize() noexcept { return kMostSize; }
  char* Write(char* to) const noexcept {
    std::memcpy(to, text_.data(), kMostSize);  // a fixed size costs no call
    return to + size_;
  }

  friend bool operator==(const ColorText& a, const ColorText& b) noexcept {
    return std::memcmp(a.text_.data(), b.text_.data(), kMostSize) == 0;  // no call either
  }

 private:
  static constexpr std::size_t kMostSize = 17;

  std::array<char, kMostSize + 3> text_{};  // zero behind the text
  std::uint8_t size_ = 0;
  bool gray_ = false;
};

[[nodiscard]] inline ColorText FormatColor(std::uint8_t red, std::uint8_t green,
                                           std::uint8_t blue) noexcept {
  ColorText color;
  color.Set(red, green, blue);
  return color;
}

/// Reads the first three fractions of `text`; "." and "," both separate decimals. `rgb` takes each
/// part as it is read. Raises run-time error 9 if a part is missing, 13 if it is not a number and
/// 6 if it leaves 0 to 255.
void ParseColor(std::string_view text, Rgb& rgb);

}  // namespace vellumark::layout
