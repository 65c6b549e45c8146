// SPDX-License-Identifier: MIT
#include "tools/classic/classic_output.h"

#include <algorithm>

#include "tools/classic/pdf_escapes.h"
#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

constexpr auto kNone = AlignmentConstants::NoAlignment;

struct CurrentFont {
  explicit CurrentFont(const Document& document) {
    document.GetFont(face.family, face.size, face.style, effect);
  }

  Face face;
  FontEffectConstants effect = FontEffectConstants::NoFontEffect;
};

}  // namespace

GlyphRun ClassicOutput::Glyphs(std::string_view text) {
  GlyphRun glyphs;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const char32_t character = NextCharacter(text, at);
    if (AppendCharacter(character, glyphs)) continue;
    const std::string_view lost = text.substr(start, at - start);
    if (lost_.find(lost) == std::string::npos) lost_ += lost;
  }
  return glyphs;
}

/// The strokes of a text that starts `indent` points right of the current position.
std::vector<Stroke> ClassicOutput::Split(std::string_view text, int indent) {
  std::int16_t x = 0;
  std::int16_t y = 0;
  std::int16_t width = 0;
  std::int16_t height = 0;
  std::int16_t left = 0;
  std::int16_t right = 0;
  document().GetPosition(x, y);
  document().GetPageDimensions(width, height);
  document().GetPageMargins(left, height, right, height);
  const auto measured_as = [this](char code) { return MeasuredAs(code); };
  std::vector<Stroke> strokes = SplitRun({x + indent, CurrentFont(document()).face, Glyphs(text)},
                                         {0, width - left - right, measured_as}, measure_);
  for (Stroke& stroke : strokes) stroke.y = std::max(y - stroke.rise, 0);
  return strokes;
}

bool ClassicOutput::WriteStroke(const Stroke& stroke, std::string_view link) {
  const CurrentFont font(document());
  const auto set_effect = [&](FontEffectConstants effect) {
    document().SetFont(font.face.family, font.face.size, font.face.style, effect);
  };
  document().SetPosition(static_cast<std::int16_t>(stroke.x), static_cast<std::int16_t>(stroke.y));
  if (!stroke.accent) return WriteCodes(stroke.codes, link);
  set_effect(FontEffectConstants::NoFontEffect);
  const bool written = WriteCodes(stroke.codes, {});
  set_effect(font.effect);
  return written;
}

bool ClassicOutput::WriteText(std::string_view text, std::string_view link) {
  const std::vector<Stroke> strokes = Split(text, 0);
  return std::all_of(strokes.begin(), strokes.end(),
                     [&](const Stroke& stroke) { return WriteStroke(stroke, link); });
}

bool ClassicOutput::WriteTitle(std::string_view text, BulletConstants bullet,
                               std::string_view link) {
  const std::vector<Stroke> strokes = Split(text, CurrentFont(document()).face.size - 1);
  if (strokes.empty()) return true;
  return WriteTitleCodes(strokes.front().codes, bullet, link) &&
         std::all_of(strokes.begin() + 1, strokes.end(),
                     [&](const Stroke& stroke) { return WriteStroke(stroke, link); });
}

void ClassicPdf::SetProperties(const Properties& properties) {
  pdf_.Title(EscapePdfProperty(properties.title));
  pdf_.Author(EscapePdfProperty(properties.author));
  pdf_.Creator(EscapePdfProperty(properties.creator));
  pdf_.Producer(EscapePdfProperty(properties.producer));
  pdf_.Subject(EscapePdfProperty(properties.subject));
  pdf_.Keywords(EscapePdfProperty(properties.keywords));
}

bool ClassicPdf::WriteCodes(std::string_view codes, std::string_view link) {
  return pdf_.WriteText(EscapePdfPageText(codes), false, 0, kNone, EscapePdfLink(link));
}

bool ClassicPdf::WriteTitleCodes(std::string_view codes, BulletConstants bullet,
                                 std::string_view link) {
  return pdf_.WriteTitle(EscapePdfPageText(codes), kNone, bullet, EscapePdfLink(link));
}

bool ClassicPdf::DrawPicture(std::string_view file, EncodingConstants encoding,
                             std::string_view link) {
  return pdf_.DrawPicture(file, kNone, EscapePdfLink(link), encoding);
}

void ClassicPs::SetProperties(const Properties& properties) {
  ps_.Title(EscapePsProperty(properties.title));
  ps_.Author(EscapePsProperty(properties.author));
  ps_.Creator(EscapePsProperty(properties.creator));
}

bool ClassicPs::WriteCodes(std::string_view codes, std::string_view /*link*/) {
  return ps_.WriteText(EscapePsPageText(codes));
}

bool ClassicPs::WriteTitleCodes(std::string_view codes, BulletConstants bullet,
                                std::string_view /*link*/) {
  return ps_.WriteTitle(EscapePsPageText(codes), kNone, bullet);
}

bool ClassicPs::DrawPicture(std::string_view file, EncodingConstants encoding,
                            std::string_view /*link*/) {
  return ps_.DrawPicture(file, kNone, encoding);
}

}  // namespace vellumark::tools
