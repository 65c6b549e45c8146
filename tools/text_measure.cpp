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

ScratchDocument::ScratchDocument(bool conforming, const DocumentFonts* fonts)
    : fonts_(fonts), document_(std::make_shared<MemoryPlatform>()) {
  document_.Conforming(conforming);
  if (fonts_ != nullptr) fonts_->LoadInto(document_);
  if (!document_.Create("scratch")) throw Failure(document_.LastRefusal().sentence);
}

int ScratchDocument::WidthOf(const Face& face, std::string_view text) {
  std::string row;
  for (int i = 0; i < kGlyphsInARow; ++i) row += text;
  document_.SetFont(fonts_ == nullptr ? face.family : fonts_->NumberOf(face), kMeasuringSize,
                    face.style, FontEffectConstants::NoFontEffect);
  return document_.TextWidth(row);
}

// A row of words is as much wider than one of blanks as they are wide. A long one is measured
// alone, to the fortieth part of an em.
std::int64_t ScratchDocument::WidthOfWord(const Face& face, std::string_view text) {
  const int blank = WidthOf(face, " ");
  const int row = WidthOf(face, std::string(text) + ' ');
  if (document_.LastRefusal().reason == RefusalReason::None) return row - blank;
  const int width = document_.TextWidth(text);
  if (document_.LastRefusal().reason == RefusalReason::None) {
    return std::int64_t{width} * kGlyphsInARow;
  }
  std::int64_t sum = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    SkipMarkedCharacter(text, at);
    sum += WidthOf(face, text.substr(start, at - start));
  }
  return sum;
}

std::int64_t ShapedMeasure::Width(const Face& face, std::string_view text) {
  std::int64_t sum = 0;
  auto& words = words_.at(FaceIndex(face));
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t blank = std::min(text.find(' ', at), text.size());
    const std::size_t end = blank == at ? at + 1 : blank;
    const std::string word(text.substr(at, end - at));
    const auto [known, added] = words.try_emplace(word, 0);
    if (added) known->second = scratch_.WidthOfWord(face, word);
    sum += known->second;
    at = end;
  }
  return sum * face.size;
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
