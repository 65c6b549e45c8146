// SPDX-License-Identifier: MIT
//
// TextMeasure: the widths of texts, measured with the library.
//
//     LibraryMeasure measure;
//     const std::int64_t width = measure.Width(face, "Übermut");   // in 1/1000 point
//     x + ToPoints(width)
//
// The width of a text is the sum of the widths of its characters, each of which is measured once,
// with TextWidth: repeated, and at a size at which the whole points that it returns are the width
// in 1/1000 em. Sums of these widths are as exact as those of the library itself.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include <vellumark/vellumark.h>

namespace vellumark::tools {

/// A font as text is set in it.
struct Face {
  FontNumberConstants family = FontNumberConstants::Times;  ///< Courier, Helvetica or Times
  FontStyleConstants style = FontStyleConstants::Regular;
  std::uint8_t size = 11;

  friend bool operator==(const Face&, const Face&) = default;
};

/// The number of a face's family and style: 0 to 11.
[[nodiscard]] constexpr std::size_t FaceIndex(const Face& face) {
  return (static_cast<std::size_t>(face.family) - 1) * 4 + static_cast<std::size_t>(face.style) - 1;
}

/// From 1/1000 point to the nearest whole point.
[[nodiscard]] constexpr int ToPoints(std::int64_t width) {
  return static_cast<int>((width + 500) / 1000);
}

/// A document without pages, which measures.
class ScratchDocument {
 public:
  explicit ScratchDocument(bool conforming);

  /// The width of a text of one or two characters in 1/1000 em.
  [[nodiscard]] int WidthOf(const Face& face, std::string_view text);

 private:
  PDF document_;
};

class TextMeasure {
 public:
  TextMeasure() = default;
  TextMeasure(const TextMeasure&) = delete;
  TextMeasure& operator=(const TextMeasure&) = delete;
  TextMeasure(TextMeasure&&) = delete;
  TextMeasure& operator=(TextMeasure&&) = delete;
  virtual ~TextMeasure() = default;

  /// The width of a text in UTF-8, in 1/1000 point.
  [[nodiscard]] std::int64_t Width(const Face& face, std::string_view text);

 private:
  struct Widths {
    std::array<std::int16_t, 128> ascii{};  // plus 1; 0 if not measured yet
    std::unordered_map<std::string, int> others;
  };

  /// The width of a character, which may have a combining mark behind it, in 1/1000 em.
  [[nodiscard]] virtual int Measure(const Face& face, std::string_view character) = 0;

  std::array<Widths, 12> widths_;  // three families of four styles
};

/// For text that the library takes as it is.
class LibraryMeasure final : public TextMeasure {
 private:
  int Measure(const Face& face, std::string_view character) override {
    return scratch_.WidthOf(face, character);
  }

  ScratchDocument scratch_{true};
};

}  // namespace vellumark::tools
