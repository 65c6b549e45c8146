// SPDX-License-Identifier: MIT
//
// FontResource: a standard font under one of its encodings, as conforming documents name it.
//
//     FontResource(font, TextEncoding::Extended)       // 18: "/F18", Helvetica
//     kFontNames[18 % kFontNames.size()]               // "Helvetica"
//     EncodingOf(18)                                   // TextEncoding::Extended
#pragma once

#include <cstddef>

#include "layout/font.h"
#include "layout/text_encoding.h"

namespace vellumark::document {

/// Two encodings for each of the fourteen fonts.
inline constexpr std::size_t kFontResources = 2 * layout::kFontNames.size();

/// 0 to 27: the index of the font, and that many more under Extended.
constexpr int FontResource(const layout::Font& font, layout::TextEncoding encoding) noexcept {
  const bool extended = encoding == layout::TextEncoding::Extended;
  return layout::FontIndex(font) + (extended ? static_cast<int>(layout::kFontNames.size()) : 0);
}

[[nodiscard]] constexpr layout::TextEncoding EncodingOf(std::size_t resource) noexcept {
  using enum layout::TextEncoding;
  constexpr std::size_t kSymbol = 12;
  if (resource >= layout::kFontNames.size()) return Extended;
  if (resource < kSymbol) return WinAnsi;
  return resource == kSymbol ? Symbol : ZapfDingbats;
}

}  // namespace vellumark::document
