// SPDX-License-Identifier: MIT
#include "tools/text_measure.h"

#include <memory>

#include "tools/failure.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

// 25 glyphs at 40 points are as wide as 1000 glyphs at 1 point.
constexpr int kGlyphsInARow = 25;
constexpr std::uint8_t kMeasuringSize = 40;

}  // namespace

ScratchDocument::ScratchDocument(bool conforming) : document_(std::make_shared<MemoryPlatform>()) {
  document_.Conforming(conforming);
  if (!document_.Create("scratch")) throw Failure(document_.LastRefusal().sentence);
}

int ScratchDocument::WidthOf(const Face& face, std::string_view text) {
  std::string row;
  for (int i = 0; i < kGlyphsInARow; ++i) row += text;
  document_.SetFont(face.family, kMeasuringSize, face.style, FontEffectConstants::NoFontEffect);
  return document_.TextWidth(row);
}

std::int64_t TextMeasure::Width(const Face& face, std::string_view text) {
  Widths& widths = widths_.at(FaceIndex(face));
  std::int64_t sum = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    SkipMarkedCharacter(text, at);
    const std::string_view character = text.substr(start, at - start);
    if (character.size() == 1) {
      std::int16_t& width = widths.ascii.at(static_cast<unsigned char>(character[0]));
      if (width == 0) width = static_cast<std::int16_t>(Measure(face, character) + 1);
      sum += width - 1;
      continue;
    }
    const auto [known, added] = widths.others.try_emplace(std::string(character), 0);
    if (added) known->second = Measure(face, character);
    sum += known->second;
  }
  return sum * face.size;
}

}  // namespace vellumark::tools
