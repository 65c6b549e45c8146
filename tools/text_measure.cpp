// SPDX-License-Identifier: MIT
#include "tools/text_measure.h"

#include <memory>

#include "tools/failure.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

// 25 glyphs at 40 points are as wide as 1000 glyphs at 1 point. The widest glyph has 1015/1000 em,
// so the row of them fits on a Ledger sheet of 1224 points. The scratch document needs less than
// 6,000 of the 32,767 object numbers of a classic document for all glyphs of all faces.
constexpr int kGlyphsInARow = 25;
constexpr std::uint8_t kMeasuringSize = 40;

}  // namespace

ScratchDocument::ScratchDocument(bool conforming) : document_(std::make_shared<MemoryPlatform>()) {
  document_.PaperSize(PaperSizeConstants::Ledger);
  document_.Conforming(conforming);
  if (!document_.Create("scratch")) throw Failure(document_.LastRefusal().sentence);
  document_.NewPage(0, 0, 0, 0, 255, 255, 255);
}

int ScratchDocument::WidthOf(const Face& face, std::string_view text) {
  std::string row;
  for (int i = 0; i < kGlyphsInARow; ++i) row += text;
  document_.SetFont(face.family, kMeasuringSize, face.style, FontEffectConstants::NoFontEffect);
  document_.SetPosition(0, 0);
  if (!document_.WriteText(row)) {
    std::size_t second = 0;
    static_cast<void>(NextCharacter(text, second));
    const bool divides = second < text.size();  // a letter and a mark that are not one glyph
    if (!divides) throw Failure(document_.LastRefusal().sentence);
    return WidthOf(face, text.substr(0, second)) + WidthOf(face, text.substr(second));
  }
  std::int16_t x = 0;
  std::int16_t y = 0;
  document_.GetPosition(x, y);
  return x;
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
