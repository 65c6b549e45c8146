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
#include <cstdint>
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

  [[nodiscard]] std::string_view view() const noexcept { return {text_.data(), size_}; }

  /// The first operand.
  [[nodiscard]] std::string_view First() const noexcept { return view().substr(0, size_ / 3); }

  /// Whether the three operands are the same.
  [[nodiscard]] bool IsGray() const noexcept {
    const std::size_t step = First().size() + 1;
    return size_ == 3 * step - 1 && view().substr(step, step - 1) == First() &&
           view().substr(2 * step) == First();
  }

  friend bool operator==(const ColorText&, const ColorText&) = default;

 private:
  friend ColorText FormatColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue) noexcept;

  std::array<char, 17> text_{};
  std::uint8_t size_ = 0;
};

[[nodiscard]] ColorText FormatColor(std::uint8_t red, std::uint8_t green,
                                    std::uint8_t blue) noexcept;

/// Reads the first three fractions of `text`; "." and "," both separate decimals. `rgb` takes each
/// part as it is read. Raises run-time error 9 if a part is missing, 13 if it is not a number and
/// 6 if it leaves 0 to 255.
void ParseColor(std::string_view text, Rgb& rgb);

}  // namespace vellumark::layout
