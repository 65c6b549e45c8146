// SPDX-License-Identifier: MIT
//
// Fonts and an engine of which a test says what they have.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "layout/font_face.h"

namespace vellumark::tests {

/// Has the given characters and shows the given marks above any of them.
class StubFace : public layout::FontFace {
 public:
  explicit StubFace(std::u32string characters, std::u32string marks = U"")
      : characters_(std::move(characters)), marks_(std::move(marks)) {}

  [[nodiscard]] const layout::FaceFacts& Facts() const noexcept override { return facts_; }
  [[nodiscard]] bool Has(char32_t character) const override {
    return characters_.find(character) != std::u32string::npos;
  }
  [[nodiscard]] std::uint16_t GlyphOf(char32_t character) const override {
    return static_cast<std::uint16_t>(characters_.find(character) + 1);
  }
  [[nodiscard]] bool HasTogether(char32_t letter, char32_t mark) const override {
    return Has(letter) && marks_.find(mark) != std::u32string::npos;
  }
  void Shape(std::string_view, const layout::RunFacts&,
             std::vector<layout::PlacedGlyph>&) const override {}
  [[nodiscard]] std::int32_t Advance(std::uint16_t) const override { return 500; }
  [[nodiscard]] layout::FontProgram Subset(std::span<const std::uint16_t>,
                                           std::string_view) const override {
    return {};
  }

 private:
  layout::FaceFacts facts_;
  std::u32string characters_;
  std::u32string marks_;
};

/// Hebrew letters run from right to left, and a blank like the letter before it; scripts are Latin,
/// Hebrew and Cyrillic, and digits have one of their own; a line may end behind a blank.
class StubEngine : public layout::FontEngine {
 public:
  std::unique_ptr<layout::FontFace> Load(std::vector<std::uint8_t>, int, std::string&) override {
    return nullptr;
  }
  std::uint8_t FindLevels(std::u32string_view text, std::vector<std::uint8_t>& levels) override {
    const bool hebrew = !text.empty() && IsHebrew(text.front());
    levels.clear();
    for (const char32_t c : text) {
      const bool blank = c == U' ' && !levels.empty();
      levels.push_back(blank ? levels.back() : LevelOf(c, hebrew));
    }
    return hebrew ? 1 : 0;
  }
  void FindScripts(std::u32string_view text, std::vector<layout::Script>& scripts) override {
    scripts.clear();
    for (const char32_t c : text) {
      const bool of_all = IsMark(c) || c == U' ' || c >= 0x2000;
      scripts.push_back(of_all && !scripts.empty() ? scripts.back() : ScriptOf(c));
    }
  }
  void FindBreaks(std::u32string_view text, std::vector<std::uint8_t>& breaks) override {
    breaks.clear();
    for (const char32_t c : text) breaks.push_back(c == U' ' ? 1 : 0);
    if (!breaks.empty()) breaks.back() = 1;
  }
  [[nodiscard]] char32_t Mirrored(char32_t character) const override { return character; }
  [[nodiscard]] bool IsMark(char32_t character) const override {
    return character >= 0x300 && character < 0x370;
  }

 private:
  static bool IsHebrew(char32_t c) { return c >= 0x590 && c < 0x600; }
  static bool IsLatin(char32_t c) { return c >= U'a' && c <= U'z'; }
  static std::uint8_t LevelOf(char32_t c, bool in_hebrew) {
    if (IsHebrew(c)) return 1;
    if (!in_hebrew) return 0;
    return IsLatin(c) ? 2 : 1;
  }
  static layout::Script ScriptOf(char32_t c) {
    if (IsHebrew(c)) return 'H';
    if (c >= 0x400) return 'C';
    return c >= U'0' && c <= U'9' ? 'D' : 'L';
  }
};

}  // namespace vellumark::tests
