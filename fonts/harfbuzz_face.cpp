// SPDX-License-Identifier: MIT
#include "fonts/harfbuzz_face.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>

#include "layout/shown_characters.h"

namespace vellumark::fonts {
namespace {

/// A run that is longer would not fit into the numbers of a glyph.
constexpr std::size_t kLongestCluster = std::numeric_limits<std::uint16_t>::max();

constexpr char32_t kNoBreakSpace = 0xA0;
constexpr char32_t kHyphen = 0x2010;
constexpr char32_t kNoBreakHyphen = 0x2011;

hb_unicode_funcs_t* Unicode() { return hb_unicode_funcs_get_default(); }

}  // namespace

HarfBuzzFace::HarfBuzzFace(std::unique_ptr<FontFile> file)
    : file_(std::move(file)),
      units_(static_cast<int>(hb_face_get_upem(file_->Face()))),
      font_(hb_font_create(file_->Face())),
      buffer_(hb_buffer_create()) {
  if (font_.get() == hb_font_get_empty() || !hb_buffer_allocation_successful(buffer_.get())) {
    throw std::bad_alloc();
  }
  hb_font_set_scale(font_.get(), units_, units_);
  hb_ot_font_set_funcs(font_.get());
  facts_ = ReadFacts();
}

std::int32_t HarfBuzzFace::InThousandths(std::int64_t units) const noexcept {
  const std::int64_t doubled = 2000 * units;
  const std::int64_t half = units < 0 ? -units_ : units_;
  return static_cast<std::int32_t>((doubled + half) / (2 * static_cast<std::int64_t>(units_)));
}

std::uint16_t HarfBuzzFace::GlyphOf(char32_t character) const {
  hb_codepoint_t glyph = 0;
  if (hb_font_get_nominal_glyph(font_.get(), character, &glyph) == 0) return 0;
  return static_cast<std::uint16_t>(glyph);
}

bool HarfBuzzFace::Has(char32_t character) const {
  if (HasGlyph(character) || character == layout::kSoftHyphen) return true;  // which is not shown
  // These two are shaped as what they look like.
  if (character == kNoBreakSpace) return HasGlyph(' ');
  if (character == kNoBreakHyphen) return HasGlyph(kHyphen);
  hb_codepoint_t letter = 0;
  hb_codepoint_t mark = 0;
  if (hb_unicode_decompose(Unicode(), character, &letter, &mark) == 0) return false;
  return HasGlyph(letter) && (mark == 0 || HasGlyph(mark));
}

bool HarfBuzzFace::HasTogether(char32_t letter, char32_t mark) const {
  if (Has(letter) && HasGlyph(mark)) return true;
  hb_codepoint_t composed = 0;
  return hb_unicode_compose(Unicode(), letter, mark, &composed) != 0 && HasGlyph(composed);
}

std::int32_t HarfBuzzFace::Advance(std::uint16_t glyph) const {
  return InThousandths(hb_font_get_glyph_h_advance(font_.get(), glyph));
}

void HarfBuzzFace::Shape(std::string_view utf8, const layout::RunFacts& run,
                         std::vector<layout::PlacedGlyph>& glyphs) const {
  hb_buffer_t* const buffer = buffer_.get();
  hb_buffer_clear_contents(buffer);
  // A letter and its marks are given back together. Readers turn what runs from right to left
  // around glyph by glyph, so there each character stands for itself.
  hb_buffer_set_cluster_level(buffer, run.right_to_left
                                          ? HB_BUFFER_CLUSTER_LEVEL_MONOTONE_CHARACTERS
                                          : HB_BUFFER_CLUSTER_LEVEL_MONOTONE_GRAPHEMES);
  hb_buffer_set_flags(buffer, HB_BUFFER_FLAG_REMOVE_DEFAULT_IGNORABLES);
  const int size = static_cast<int>(utf8.size());
  hb_buffer_add_utf8(buffer, utf8.data(), size, 0, size);
  hb_buffer_set_direction(buffer, run.right_to_left ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
  // The language stays open: that of the process would make other glyphs elsewhere.
  hb_buffer_set_language(buffer, hb_language_from_string("und", -1));
  if (run.script != 0) hb_buffer_set_script(buffer, static_cast<hb_script_t>(run.script));
  hb_buffer_guess_segment_properties(buffer);
  // The OpenType tables alone: whether HarfBuzz knows others, such as Graphite's, depends on its
  // build.
  static constexpr const char* kShapers[] = {"ot", nullptr};
  if (hb_shape_full(font_.get(), buffer, nullptr, 0, kShapers) == 0) throw std::bad_alloc();
  if (!hb_buffer_allocation_successful(buffer)) throw std::bad_alloc();

  unsigned count = 0;
  const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(buffer, &count);
  const hb_glyph_position_t* const places = hb_buffer_get_glyph_positions(buffer, &count);
  const std::size_t first = glyphs.size();
  glyphs.resize(first + count);
  for (unsigned i = 0; i < count; ++i) {
    layout::PlacedGlyph& glyph = glyphs[first + i];
    glyph.id = static_cast<std::uint16_t>(infos[i].codepoint);
    glyph.text_begin = infos[i].cluster;
    glyph.advance = InThousandths(places[i].x_advance);
    glyph.dx = InThousandths(places[i].x_offset);
    glyph.dy = InThousandths(places[i].y_offset);
  }
  // A cluster's text goes up to the next cluster, which stands on its left in a run from right to
  // left. Its first glyph from the left has it.
  std::size_t end = utf8.size();
  for (unsigned i = 0, next = 0; i < count; i = next) {
    const std::size_t begin = infos[i].cluster;
    while (next < count && infos[next].cluster == begin) ++next;
    if (!run.right_to_left) end = next < count ? infos[next].cluster : utf8.size();
    const std::size_t bytes = end > begin ? end - begin : 0;
    glyphs[first + i].text_size = static_cast<std::uint16_t>(std::min(bytes, kLongestCluster));
    if (run.right_to_left) end = begin;
  }
}

std::string HarfBuzzFace::ReadName() const {
  std::array<char, 64> text{};
  auto size = static_cast<unsigned>(text.size());
  hb_ot_name_get_utf8(file_->Face(), HB_OT_NAME_ID_POSTSCRIPT_NAME,
                      hb_language_from_string("en", -1), &size, text.data());
  std::string name;
  for (const char c : std::string_view(text.data())) {
    const bool taken =
        (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-';
    if (taken) name += c;
  }
  return name.empty() ? "Font" : name;
}

layout::FaceFacts HarfBuzzFace::ReadFacts() const {
  hb_face_t* const face = file_->Face();
  const Table head(face, HB_TAG('h', 'e', 'a', 'd'));
  const Table hhea(face, HB_TAG('h', 'h', 'e', 'a'));
  const Table os2(face, HB_TAG('O', 'S', '/', '2'));
  const Table post(face, HB_TAG('p', 'o', 's', 't'));
  layout::FaceFacts facts;
  facts.name = ReadName();
  facts.outlines = file_->Outlines();
  facts.glyphs = static_cast<int>(hb_face_get_glyph_count(face));
  facts.fixed_pitch = post.U32(12) != 0;
  facts.italic_angle = std::clamp<int>(post.I16(4), -45, 45);
  facts.ascent = InThousandths(hhea.I16(4));
  facts.descent = InThousandths(hhea.I16(6));
  // Capitals from version 2 of OS/2 on; an ascent without its accents otherwise.
  const bool has_capitals = os2.U16(0) >= 2 && os2.I16(88) > 0;
  facts.cap_height = has_capitals ? InThousandths(os2.I16(88)) : facts.ascent * 3 / 4;
  const int weight = os2.Size() == 0 ? 400 : std::clamp<int>(os2.U16(4), 100, 900);
  facts.stem = 50 + weight * weight / (65 * 65);
  for (std::size_t i = 0; i < facts.box.size(); ++i) {
    facts.box[i] = InThousandths(head.I16(36 + 2 * i));
  }
  return facts;
}

}  // namespace vellumark::fonts
