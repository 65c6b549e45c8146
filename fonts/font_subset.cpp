// SPDX-License-Identifier: MIT
//
// A font of the glyphs that a document uses. What readers do not need goes: hints, which they do
// not use where pages are shown as they are printed, names, the tables that shape texts, and the
// one that finds glyphs by characters.
#include <memory>
#include <new>
#include <vector>

#include <vellumark/run_time_error.h>

#include "fonts/cid_keyed_cff.h"
#include "fonts/harfbuzz_face.h"

namespace vellumark::fonts {
namespace {

struct DestroySubset {
  void operator()(hb_subset_input_t* input) const { hb_subset_input_destroy(input); }
  void operator()(hb_subset_plan_t* plan) const { hb_subset_plan_destroy(plan); }
};
template <class T>
using OwnedSubset = std::unique_ptr<T, DestroySubset>;

constexpr const char* kKeptTables[] = {"head", "hhea", "hmtx", "maxp", "glyf", "loca", "CFF "};

/// What goes into the subset: `glyphs`, and the tables that readers need.
OwnedSubset<hb_subset_input_t> InputFor(hb_face_t* face, std::span<const std::uint16_t> glyphs) {
  OwnedSubset<hb_subset_input_t> input(hb_subset_input_create_or_fail());
  if (!input) throw std::bad_alloc();
  hb_set_t* const wanted = hb_subset_input_glyph_set(input.get());
  for (const std::uint16_t glyph : glyphs) hb_set_add(wanted, glyph);
  hb_subset_input_set_flags(input.get(),
                            HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_NOTDEF_OUTLINE);
  hb_set_t* const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
  unsigned count = hb_face_get_table_tags(face, 0, nullptr, nullptr);
  std::vector<hb_tag_t> tags(count);
  hb_face_get_table_tags(face, 0, &count, tags.data());
  for (const hb_tag_t tag : tags) hb_set_add(dropped, tag);
  for (const char* const kept : kKeptTables) {
    hb_set_del(dropped, HB_TAG(kept[0], kept[1], kept[2], kept[3]));
  }
  if (!hb_set_allocation_successful(wanted) || !hb_set_allocation_successful(dropped)) {
    throw std::bad_alloc();
  }
  return input;
}

std::vector<std::uint8_t> BytesOf(hb_blob_t* blob) {
  unsigned size = 0;
  const char* const data = hb_blob_get_data(blob, &size);
  return {data, data + size};
}

}  // namespace

bool HarfBuzzFace::CanBeSubset() const {
  constexpr std::uint16_t kFirst[] = {0};
  try {
    return !Subset(kFirst, "A").bytes.empty();
  } catch (const RunTimeError&) {
    return false;
  }
}

layout::FontProgram HarfBuzzFace::Subset(std::span<const std::uint16_t> glyphs,
                                         std::string_view name) const {
  hb_face_t* const face = file_->Face();
  const auto input = InputFor(face, glyphs);
  const OwnedSubset<hb_subset_plan_t> plan(hb_subset_plan_create_or_fail(face, input.get()));
  if (!plan) throw RunTimeError(RunTimeError::TypeMismatch);
  const Owned<hb_face_t> subset(hb_subset_plan_execute_or_fail(plan.get()));
  if (!subset) throw RunTimeError(RunTimeError::TypeMismatch);
  const hb_map_t* const numbers = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
  std::vector<std::uint16_t> glyph_of_code;
  for (const std::uint16_t glyph : glyphs) {
    const hb_codepoint_t number = hb_map_get(numbers, glyph);
    glyph_of_code.push_back(number == HB_MAP_VALUE_INVALID ? std::uint16_t{0}
                                                           : static_cast<std::uint16_t>(number));
  }
  if (facts_.outlines == layout::Outlines::TrueType) {
    const Owned<hb_blob_t> file(hb_face_reference_blob(subset.get()));
    return {BytesOf(file.get()), std::move(glyph_of_code)};
  }
  // Glyphs that others are made of have no code; their numbers come behind.
  std::vector<std::uint16_t> cids(hb_face_get_glyph_count(subset.get()));
  std::vector<bool> coded(cids.size());
  for (std::size_t code = 0; code < glyphs.size(); ++code) {
    if (glyph_of_code[code] >= cids.size()) throw RunTimeError(RunTimeError::TypeMismatch);
    cids[glyph_of_code[code]] = static_cast<std::uint16_t>(code);
    coded[glyph_of_code[code]] = true;
  }
  std::size_t next = glyphs.size();
  for (std::size_t i = 0; i < cids.size(); ++i) {
    if (!coded[i]) cids[i] = static_cast<std::uint16_t>(next++);
  }
  const Table table(subset.get(), HB_TAG('C', 'F', 'F', ' '));
  return {CidKeyedCff(table.Bytes(), cids, name), {}};
}

}  // namespace vellumark::fonts
