// SPDX-License-Identifier: MIT
#include "layout/text_width.h"

#include <algorithm>
#include <limits>

#include "layout/rounding.h"

namespace vellumark::layout {
namespace {

constexpr int kFirstResource = 101;
constexpr CodeWidths kNoCodes{};
constexpr CodeWidths kCourierCodes = [] {
  CodeWidths widths{};
  widths.fill(kCourierWidth);
  return widths;
}();

}  // namespace

FontWidths::FontWidths(Platform& platform) : tables_{} {
  for (std::size_t i = 0; i < tables_.size(); ++i) {
    const auto bytes = platform.WidthResource(kFirstResource + static_cast<int>(i));
    if (bytes.empty()) throw RunTimeError(RunTimeError::SubscriptOutOfRange);
    const std::size_t codes = std::min(bytes.size() / 2, tables_[i].size());
    for (std::size_t code = 0; code < codes; ++code) {
      tables_[i][code] = static_cast<std::uint16_t>(bytes[2 * code] | (bytes[2 * code + 1] << 8));
    }
  }
}

std::int32_t FontWidths::Sum(std::string_view text, const Font& font) const {
  if (font.number == FontNumberConstants::Courier) {
    return CheckedWidth(kCourierWidth * static_cast<std::int64_t>(text.size()));
  }
  return CheckedWidth(SumOfWidths(text, Codes(font)));
}

// In whole numbers where that is the same, which spares every text a slow division: all but ties,
// where the floating product decides.
Points FontWidths::InPoints(std::uint8_t height, std::int32_t sum) {
  const auto product = static_cast<std::uint64_t>(std::int64_t{height} * sum);
  if (product <= std::numeric_limits<std::uint32_t>::max()) {  // and not negative
    const auto number = static_cast<std::uint32_t>(product);
    const std::uint32_t rest = number % 1000;
    if (rest != 500) return {static_cast<int>(number / 1000) + (rest > 500 ? 1 : 0)};
  }
  return {RoundHalfEven(height * (sum / 1000.0))};
}

std::int32_t FontWidths::LargestSum(std::uint8_t height, Points width) {
  if (height == 0) return width < 0 ? -1 : std::numeric_limits<std::int32_t>::max();
  // Starts half a point above the width, and goes back until the sum no longer rounds up.
  std::int32_t sum = (2 * width.value() + 1) * 500 / height;
  while (InPoints(height, sum) > width) --sum;
  return sum;
}

const CodeWidths& FontWidths::Codes(const Font& font) const noexcept {
  switch (font.number) {
    case FontNumberConstants::Courier: return kCourierCodes;
    case FontNumberConstants::Symbol: return tables_[8];
    case FontNumberConstants::ZapfDingbats: return tables_[9];
    case FontNumberConstants::Helvetica:
    case FontNumberConstants::Times: break;
    default: return kNoCodes;
  }
  const auto style = static_cast<std::int32_t>(font.style);
  if (style < 1 || style > 4) return kNoCodes;
  const int family = font.number == FontNumberConstants::Helvetica ? 0 : 4;
  return tables_[static_cast<std::size_t>(family + style - 1)];
}

}  // namespace vellumark::layout
