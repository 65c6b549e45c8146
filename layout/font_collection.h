// SPDX-License-Identifier: MIT
//
// FontCollection: the fonts that a document has loaded, by their numbers, and which of them stand
// in for characters that the current font lacks.
//
//     FontCollection fonts;
//     fonts.UseEngine(std::move(engine));
//     const int number = fonts.Add(std::move(face));       // 101, 102, ...
//     fonts.AddFallback(number);
//     fonts.Face(number)->Facts();
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "layout/font.h"
#include "layout/font_face.h"

namespace vellumark::layout {

class FontCollection {
 public:
  static constexpr int kFirstNumber = 101;
  static constexpr int kMostFonts = 1000;

  void UseEngine(std::unique_ptr<FontEngine> engine) noexcept { engine_ = std::move(engine); }

  /// Null before the first font.
  [[nodiscard]] FontEngine* Engine() const noexcept { return engine_.get(); }

  [[nodiscard]] bool Empty() const noexcept { return faces_.empty(); }
  [[nodiscard]] bool Full() const noexcept { return faces_.size() >= kMostFonts; }

  /// Returns the font's number.
  int Add(std::unique_ptr<FontFace> face) {
    faces_.push_back(std::move(face));
    return kFirstNumber + static_cast<int>(faces_.size()) - 1;
  }

  /// The face of a number; null for one that Add did not return.
  [[nodiscard]] const FontFace* Face(int number) const noexcept {
    const int last = kFirstNumber + static_cast<int>(faces_.size()) - 1;
    if (number < kFirstNumber || number > last) return nullptr;
    return faces_[static_cast<std::size_t>(number - kFirstNumber)].get();
  }
  [[nodiscard]] const FontFace* Face(const Font& font) const noexcept {
    return Face(static_cast<int>(font.number));
  }

  /// Puts a font behind the other fallbacks; one that is among them stays where it is.
  void AddFallback(int number) {
    for (const int each : fallbacks_) {
      if (each == number) return;
    }
    fallbacks_.push_back(number);
  }

  /// Numbers, in their order.
  [[nodiscard]] std::span<const int> Fallbacks() const noexcept { return fallbacks_; }

 private:
  std::unique_ptr<FontEngine> engine_;
  std::vector<std::unique_ptr<FontFace>> faces_;
  std::vector<int> fallbacks_;
};

}  // namespace vellumark::layout
