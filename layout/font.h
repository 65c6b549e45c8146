// SPDX-License-Identifier: MIT
//
// Font: the current font of a document, and its place among the fourteen standard Type 1 fonts.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include <vellumark/enumerations.h>

namespace vellumark::layout {

/// A font as SetFont stores it. Before Create all four fields are 0, which names no font.
struct Font {
  FontNumberConstants number{};
  std::uint8_t height = 0;  ///< points
  FontStyleConstants style{};
  FontEffectConstants effect{};
};

/// The standard fonts, in the order of their index.
inline constexpr std::array<std::string_view, 14> kFontNames = {
    "Courier",     "Courier-Bold",   "Courier-Oblique",   "Courier-BoldOblique",
    "Helvetica",   "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique",
    "Times-Roman", "Times-Bold",     "Times-Italic",      "Times-BoldItalic",
    "Symbol",      "ZapfDingbats"};

/// Index of a font into kFontNames, 0 to 13: four faces per text family, then Symbol and
/// ZapfDingbats whatever their style. A font of no family (before Create) gets a negative index.
constexpr int FontIndex(const Font& font) noexcept {
  const auto number = static_cast<std::int32_t>(font.number);
  const auto style = static_cast<std::int32_t>(font.style);
  return number < 4 ? (number - 1) * 4 + style - 1 : number + 8;
}

/// Name of the font; empty if it is not one of the fourteen.
constexpr std::string_view FontName(const Font& font) noexcept {
  const bool faced =
      font.style >= FontStyleConstants::Regular && font.style <= FontStyleConstants::BoldItalic;
  const bool known = font.number >= FontNumberConstants::Courier &&
                     font.number <= FontNumberConstants::ZapfDingbats &&
                     (faced || font.number >= FontNumberConstants::Symbol);
  return known ? kFontNames[static_cast<std::size_t>(FontIndex(font))] : std::string_view();
}

}  // namespace vellumark::layout
