// SPDX-License-Identifier: MIT
#include "ps/type42.h"

#include <algorithm>
#include <string_view>

#include <vellumark/run_time_error.h>

namespace vellumark::ps {
namespace {

using Bytes = std::span<const std::uint8_t>;

std::size_t NumberAt(Bytes bytes, std::size_t at, std::size_t size) {
  if (at > bytes.size() || bytes.size() - at < size) throw RunTimeError(RunTimeError::TypeMismatch);
  std::size_t number = 0;
  for (std::size_t i = 0; i < size; ++i) number = number << 8 | bytes[at + i];
  return number;
}

/// Where the tables and the glyphs begin, and the font ends.
std::vector<std::size_t> Cuts(Bytes font) {
  constexpr std::size_t kDirectory = 12;
  constexpr std::size_t kEntry = 16;
  const std::size_t tables = NumberAt(font, 4, 2);
  const auto find = [&](std::string_view tag) {
    for (std::size_t i = 0; i < tables; ++i) {
      const std::size_t entry = kDirectory + kEntry * i;
      NumberAt(font, entry, 4);
      if (std::equal(tag.begin(), tag.end(), font.begin() + static_cast<std::ptrdiff_t>(entry))) {
        return NumberAt(font, entry + 8, 4);
      }
    }
    return std::size_t{0};
  };
  std::vector<std::size_t> cuts = {font.size()};
  for (std::size_t i = 0; i < tables; ++i) {
    cuts.push_back(NumberAt(font, kDirectory + kEntry * i + 8, 4));
  }
  const std::size_t glyf = find("glyf");
  const std::size_t loca = find("loca");
  if (glyf != 0 && loca != 0) {
    constexpr std::size_t kIndexFormat = 50;
    const bool wide = NumberAt(font, find("head") + kIndexFormat, 2) != 0;
    const std::size_t glyphs = NumberAt(font, find("maxp") + 4, 2);
    for (std::size_t i = 0; i < glyphs; ++i) {
      cuts.push_back(
          glyf + (wide ? NumberAt(font, loca + 4 * i, 4) : 2 * NumberAt(font, loca + 2 * i, 2)));
    }
  }
  std::sort(cuts.begin(), cuts.end());
  return cuts;
}

}  // namespace

std::vector<Bytes> SfntStrings(Bytes font) {
  constexpr std::size_t kLongest = 65534;
  std::vector<Bytes> strings;
  std::size_t begin = 0;
  std::size_t end = 0;  // the last cut that is near enough
  for (const std::size_t cut : Cuts(font)) {
    if (cut > font.size()) throw RunTimeError(RunTimeError::TypeMismatch);
    if (cut - begin > kLongest) {
      if (end == begin) throw RunTimeError(RunTimeError::TypeMismatch);
      strings.push_back(font.subspan(begin, end - begin));
      begin = end;
      if (cut - begin > kLongest) throw RunTimeError(RunTimeError::TypeMismatch);
    }
    if (cut % 2 == 0 || cut == font.size()) end = cut;
  }
  strings.push_back(font.subspan(begin));
  return strings;
}

}  // namespace vellumark::ps
