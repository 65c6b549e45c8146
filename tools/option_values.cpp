// SPDX-License-Identifier: MIT
#include "tools/option_values.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace vellumark::tools {
namespace {

constexpr int kWidestMargin = 2000;

template <typename Value>
struct Named {
  std::string_view name;
  Value value;
};

constexpr std::array<Named<PaperSizeConstants>, 9> kPapers = {{
    {"a3", PaperSizeConstants::A3},
    {"a4", PaperSizeConstants::A4},
    {"a5", PaperSizeConstants::A5},
    {"executive", PaperSizeConstants::Executive},
    {"folio", PaperSizeConstants::Folio},
    {"ledger", PaperSizeConstants::Ledger},
    {"legal", PaperSizeConstants::Legal},
    {"letter", PaperSizeConstants::Letter},
    {"tabloid", PaperSizeConstants::Tabloid},
}};

constexpr std::array<Named<OrientationConstants>, 2> kOrientations = {{
    {"portrait", OrientationConstants::Portrait},
    {"landscape", OrientationConstants::Landscape},
}};

constexpr std::array<Named<Format>, 2> kFormats = {{
    {"pdf", Format::Pdf},
    {"ps", Format::Ps},
}};

constexpr std::array<Named<EncodingConstants>, 5> kEncodings = {{
    {"original", EncodingConstants::Original},
    {"ascii85", EncodingConstants::ASCII85},
    {"hex", EncodingConstants::ASCIIHex},
    {"runlength", EncodingConstants::RunLength},
    {"flate", EncodingConstants::Flate},
}};

constexpr std::array<Named<FontNumberConstants>, 3> kFonts = {{
    {"courier", FontNumberConstants::Courier},
    {"helvetica", FontNumberConstants::Helvetica},
    {"times", FontNumberConstants::Times},
}};

constexpr std::array<Named<std::uint32_t>, 12> kColors = {{
    {"white", 0xFFFFFF},
    {"ivory", 0xFFFFF0},
    {"beige", 0xF5F5DC},
    {"cream", 0xFFFDD0},
    {"linen", 0xFAF0E6},
    {"snow", 0xFFFAFA},
    {"silver", 0xC0C0C0},
    {"lightgray", 0xD3D3D3},
    {"lightyellow", 0xFFFFE0},
    {"lightblue", 0xADD8E6},
    {"lightgreen", 0x90EE90},
    {"pink", 0xFFC0CB},
}};

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

template <typename Value, std::size_t Count>
std::optional<Value> Find(std::string_view name, const std::array<Named<Value>, Count>& names) {
  for (const Named<Value>& row : names) {
    if (SameName(row.name, name)) return row.value;
  }
  return std::nullopt;
}

Rgb ToRgb(std::uint32_t color) {
  return {static_cast<std::uint8_t>(color >> 16U), static_cast<std::uint8_t>(color >> 8U),
          static_cast<std::uint8_t>(color)};
}

}  // namespace

std::optional<PaperSizeConstants> ParsePaper(std::string_view name) { return Find(name, kPapers); }

std::optional<OrientationConstants> ParseOrientation(std::string_view name) {
  return Find(name, kOrientations);
}

std::optional<Format> ParseFormat(std::string_view name) { return Find(name, kFormats); }

std::optional<EncodingConstants> ParseEncoding(std::string_view name) {
  return Find(name, kEncodings);
}

std::optional<FontNumberConstants> ParseFont(std::string_view name) { return Find(name, kFonts); }

std::optional<Rgb> ParseColor(std::string_view text) {
  if (!text.starts_with('#')) {
    const auto color = Find(text, kColors);
    return color ? std::optional(ToRgb(*color)) : std::nullopt;
  }
  std::uint32_t color = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data() + 1, end, color, 16);
  if (text.size() != 7 || error != std::errc{} || stop != end) return std::nullopt;
  return ToRgb(color);
}

std::optional<Margins> ParseMargins(std::string_view text) {
  std::array<int, 4> sides{};
  std::size_t count = 0;
  for (bool more = true; more; ++count) {
    const std::size_t comma = text.find(',');
    const auto side = ParseNumber(text.substr(0, comma), 0, kWidestMargin);
    if (!side || count == sides.size()) return std::nullopt;
    sides.at(count) = *side;
    more = comma != std::string_view::npos;
    if (more) text.remove_prefix(comma + 1);
  }
  if (count == 1) sides.fill(sides[0]);
  if (count != 1 && count != sides.size()) return std::nullopt;
  return Margins{sides[0], sides[1], sides[2], sides[3]};
}

std::optional<int> ParseNumber(std::string_view text, int least, int most) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc{} || stop != end) return std::nullopt;
  return number >= least && number <= most ? std::optional(number) : std::nullopt;
}

}  // namespace vellumark::tools
