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

#include "tools/document_fonts.h"
#include "tools/face.h"

namespace vellumark::tools {

/// From 1/1000 point to the nearest whole point.
[[nodiscard]] constexpr int ToPoints(std::int64_t width) {
  return static_cast<int>((width + 500) / 1000);
}

/// A document without pages, which measures.
class ScratchDocument {
 public:
  /// Fonts are loaded if there are any.
  explicit ScratchDocument(bool conforming, const DocumentFonts* fonts = nullptr);

  /// The width of a text of one or two characters in 1/1000 em.
  [[nodiscard]] int WidthOf(const Face& face, std::string_view text);

  /// The width of a text of any length in 1/1000 em, shaped as a word of its own.
  [[nodiscard]] std::int64_t WidthOfWord(const Face& face, std::string_view text);

 private:
  const DocumentFonts* fonts_;
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
  [[nodiscard]] virtual std::int64_t Width(const Face& face, std::string_view text);

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

/// For documents with loaded fonts, in which words are shaped as a whole.
class ShapedMeasure final : public TextMeasure {
 public:
  /// `fonts` must outlive the measure.
  explicit ShapedMeasure(const DocumentFonts& fonts) : scratch_(true, &fonts) {}

  [[nodiscard]] std::int64_t Width(const Face& face, std::string_view text) override;

 private:
  int Measure(const Face& face, std::string_view character) override {
    return scratch_.WidthOf(face, character);
  }

  ScratchDocument scratch_;
  std::array<std::unordered_map<std::string, std::int64_t>, 12> words_;  // by FaceIndex
};

}  // namespace vellumark::tools
