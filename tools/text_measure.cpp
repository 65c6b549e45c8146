// SPDX-License-Identifier: MIT
#include "tools/text_measure.h"

#include <string>

#include "tools/failure.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

// 25 glyphs at 40 points are as wide as 1000 glyphs at 1 point. The widest glyph has 1015/1000 em,
// so the row of them fits on a Ledger sheet of 1224 points. The scratch document needs less than
// 6,000 of its 32,767 object numbers for all glyphs of all faces.
constexpr int kGlyphsInARow = 25;
constexpr std::uint8_t kMeasuringSize = 40;

std::size_t TableIndex(const Face& face) {
  const auto family = static_cast<std::size_t>(face.family) - 1;
  return family * 4 + static_cast<std::size_t>(face.style) - 1;
}

}  // namespace

GlyphMeasure::GlyphMeasure() : scratch_(std::make_shared<MemoryPlatform>()) {
  for (Table& table : tables_) table.fill(-1);
  scratch_.PaperSize(PaperSizeConstants::Ledger);
  if (!scratch_.Create("scratch")) throw Failure(scratch_.LastRefusal().sentence);
  scratch_.NewPage(0, 0, 0, 0, 255, 255, 255);
}

int GlyphMeasure::GlyphWidth(const Face& face, char code) {
  std::int16_t& width = tables_.at(TableIndex(face))[static_cast<unsigned char>(code)];
  if (width < 0) width = static_cast<std::int16_t>(Learn(face, code));
  return width;
}

std::int64_t GlyphMeasure::Width(const Face& face, std::string_view codes) {
  std::int64_t sum = 0;
  for (const char code : codes) sum += GlyphWidth(face, code);
  return sum * face.size;
}

int GlyphMeasure::Learn(const Face& face, char code) {
  std::string row;
  for (int i = 0; i < kGlyphsInARow; ++i) AppendUtf8(row, static_cast<unsigned char>(code));
  scratch_.SetFont(face.family, kMeasuringSize, face.style, FontEffectConstants::NoFontEffect);
  scratch_.SetPosition(0, 0);
  if (!scratch_.WriteText(row)) throw Failure(scratch_.LastRefusal().sentence);
  std::int16_t x = 0;
  std::int16_t y = 0;
  scratch_.GetPosition(x, y);
  return x;
}

}  // namespace vellumark::tools
