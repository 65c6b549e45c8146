// SPDX-License-Identifier: MIT
//
// UsedFonts: the fonts of a conforming document, and the codes beyond ASCII that it shows in each.
// They are what its setup declares.
//
//     fonts.Add(18);                           // F18, Helvetica in Extended (font_resource.h)
//     fonts.AddCodes(18, "\xB9");
//     fonts.NeededResources()                  // %%DocumentNeededResources: font Helvetica
//     fonts.Setup()                            // %%IncludeResource: font Helvetica
//                                              // /F18/Vellumark-F18/Helvetica StandardEncoding
//                                              // {39/quotesingle 191 96/grave 333
//                                              // 185/aogonek 556}N
//
// A code has the published width of its glyph, by which the text was measured: interpreters show
// these fonts with others of their own, in which some glyphs are wider or narrower.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/font_resource.h"

namespace vellumark::ps {

class UsedFonts {
 public:
  void Clear() noexcept { RollBack(0); }

  void Add(int resource) { AddCode(static_cast<std::size_t>(resource), kFontItself); }

  /// Adds the codes that are not printable ASCII.
  void AddCodes(int resource, std::string_view bytes);

  /// A place to go back to.
  [[nodiscard]] std::size_t Here() const noexcept { return added_.size(); }
  void RollBack(std::size_t mark) noexcept;

  /// The comments that name the fonts; none if no font is used. Each line ends with a line feed.
  [[nodiscard]] std::string NeededResources() const;

  /// What defines the fonts; each line ends with a line feed.
  [[nodiscard]] std::string Setup() const;

 private:
  static constexpr std::size_t kFontItself = ' ';

  void AddCode(std::size_t resource, std::size_t code);
  [[nodiscard]] bool Uses(std::size_t resource) const { return codes_[resource][kFontItself]; }
  void AppendFont(std::size_t resource, std::string& setup) const;

  std::array<std::bitset<256>, document::kFontResources> codes_;
  std::vector<std::uint16_t> added_;  // 256 times the resource, and the code
};

}  // namespace vellumark::ps
