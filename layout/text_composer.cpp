// SPDX-License-Identifier: MIT
#include "layout/text_composer.h"

#include <limits>

#include <vellumark/run_time_error.h>

namespace vellumark::layout {
namespace {

std::int32_t InRange(std::int64_t sum) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  if (sum > kMost || sum < -kMost) throw RunTimeError(RunTimeError::Overflow);
  return static_cast<std::int32_t>(sum);
}

}  // namespace

// Until Finish, a run's text is known by its size alone, and its glyphs by their number: what holds
// them may still move.
TextComposer::TextComposer(EncodedText& text) : text_(text) {
  text_.runs_.clear();
  text_.lost_.clear();
  text_.texts_.clear();
  text_.glyphs_.clear();
  text_.shaped_.clear();
  text_.size_ = 0;
  text_.width_ = 0;
}

void TextComposer::BeginGlyphs(int font, std::string_view utf8) {
  first_glyph_ = text_.glyphs_.size();
  glyph_text_ = text_.texts_.size();
  font_ = font;
  text_.texts_.append(utf8);
}

void TextComposer::AddGlyphs(std::span<const PlacedGlyph> glyphs, std::size_t text_begin) {
  const std::size_t first = text_.glyphs_.size();
  text_.glyphs_.insert(text_.glyphs_.end(), glyphs.begin(), glyphs.end());
  for (std::size_t i = first; i < text_.glyphs_.size(); ++i) {
    text_.glyphs_[i].text_begin += static_cast<std::uint32_t>(text_begin);
  }
}

void TextComposer::AddGlyphGap(std::int32_t gap) {
  if (text_.glyphs_.size() > first_glyph_) text_.glyphs_.back().advance += gap;
}

void TextComposer::EndGlyphs() {
  const std::size_t count = text_.glyphs_.size() - first_glyph_;
  if (count == 0) {
    text_.texts_.resize(glyph_text_);
    return;
  }
  std::int64_t width = 0;
  for (std::size_t i = first_glyph_; i < text_.glyphs_.size(); ++i) {
    width += text_.glyphs_[i].advance;
  }
  text_.runs_.push_back(
      {.bytes = std::string_view(text_.texts_).substr(glyph_text_), .width = InRange(width)});
  text_.shaped_.push_back({.font = font_, .glyphs = std::span(text_.glyphs_).last(count)});
}

void TextComposer::AddCodes(std::string_view utf8, const Font& font, std::int32_t gap) {
  EncodedText codes;
  EncodeText(utf8, font, codes);
  text_.lost_.insert(text_.lost_.end(), codes.lost_.begin(), codes.lost_.end());
  for (const EncodedRun& run : codes.runs_) {
    const std::size_t begin = text_.texts_.size();
    text_.texts_.append(run.bytes);
    text_.runs_.push_back(run);
    text_.runs_.back().bytes = std::string_view(text_.texts_).substr(begin);
    text_.shaped_.push_back({});
  }
  if (gap != 0 && !text_.shaped_.empty()) text_.shaped_.back().gap = gap;
}

void TextComposer::Finish() {
  std::size_t begin = 0;
  std::size_t glyph = 0;
  std::int64_t width = 0;
  for (std::size_t i = 0; i < text_.runs_.size(); ++i) {
    EncodedRun& run = text_.runs_[i];
    ShapedRun& shaped = text_.shaped_[i];
    run.bytes = std::string_view(text_.texts_).substr(begin, run.bytes.size());
    begin += run.bytes.size();
    shaped.glyphs = std::span(text_.glyphs_).subspan(glyph, shaped.glyphs.size());
    glyph += shaped.glyphs.size();
    run.shaped = &shaped;
    width += std::int64_t{run.width} + shaped.gap;
  }
  text_.size_ = text_.texts_.size();
  text_.width_ = InRange(width);
}

}  // namespace vellumark::layout
