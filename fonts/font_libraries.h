// SPDX-License-Identifier: MIT
//
// The functions of HarfBuzz, its subsetter, FriBidi, libunibreak and libthai that this room calls.
// The libraries are loaded with the first font (platform/loaded_library.h).
//
//     if (std::string reason = LoadFontLibraries(); !reason.empty()) ...   // "libthai.so.0: ..."
//     hb_buffer_t* buffer = hb_buffer_create();
#pragma once

#include <fribidi.h>
#include <hb-ot.h>
#include <hb-subset.h>
#include <hb.h>
#include <linebreak.h>
#include <string>
#include <thai/thbrk.h>
#include <thai/thwbrk.h>

#include "platform/loaded_library.h"

namespace vellumark::fonts {

#define VELLUMARK_HARFBUZZ_FUNCTIONS(X, Table) \
  X(Table, hb_blob_create)                     \
  X(Table, hb_blob_destroy)                    \
  X(Table, hb_blob_get_data)                   \
  X(Table, hb_blob_get_empty)                  \
  X(Table, hb_buffer_add_utf8)                 \
  X(Table, hb_buffer_allocation_successful)    \
  X(Table, hb_buffer_clear_contents)           \
  X(Table, hb_buffer_create)                   \
  X(Table, hb_buffer_destroy)                  \
  X(Table, hb_buffer_get_glyph_infos)          \
  X(Table, hb_buffer_get_glyph_positions)      \
  X(Table, hb_buffer_guess_segment_properties) \
  X(Table, hb_buffer_set_cluster_level)        \
  X(Table, hb_buffer_set_direction)            \
  X(Table, hb_buffer_set_flags)                \
  X(Table, hb_buffer_set_language)             \
  X(Table, hb_buffer_set_script)               \
  X(Table, hb_face_count)                      \
  X(Table, hb_face_create)                     \
  X(Table, hb_face_destroy)                    \
  X(Table, hb_face_get_empty)                  \
  X(Table, hb_face_get_glyph_count)            \
  X(Table, hb_face_get_table_tags)             \
  X(Table, hb_face_get_upem)                   \
  X(Table, hb_face_reference_blob)             \
  X(Table, hb_face_reference_table)            \
  X(Table, hb_font_create)                     \
  X(Table, hb_font_destroy)                    \
  X(Table, hb_font_get_empty)                  \
  X(Table, hb_font_get_glyph_h_advance)        \
  X(Table, hb_font_get_nominal_glyph)          \
  X(Table, hb_font_set_scale)                  \
  X(Table, hb_language_from_string)            \
  X(Table, hb_map_get)                         \
  X(Table, hb_ot_font_set_funcs)               \
  X(Table, hb_ot_name_get_utf8)                \
  X(Table, hb_set_add)                         \
  X(Table, hb_set_allocation_successful)       \
  X(Table, hb_set_del)                         \
  X(Table, hb_shape_full)                      \
  X(Table, hb_unicode_compose)                 \
  X(Table, hb_unicode_decompose)               \
  X(Table, hb_unicode_funcs_get_default)       \
  X(Table, hb_unicode_general_category)        \
  X(Table, hb_unicode_script)
VELLUMARK_LOADED_LIBRARY(HarfBuzzLibrary, VELLUMARK_SONAME_HARFBUZZ, VELLUMARK_HARFBUZZ_FUNCTIONS)

#define VELLUMARK_SUBSETTER_FUNCTIONS(X, Table) \
  X(Table, hb_subset_input_create_or_fail)      \
  X(Table, hb_subset_input_destroy)             \
  X(Table, hb_subset_input_glyph_set)           \
  X(Table, hb_subset_input_set)                 \
  X(Table, hb_subset_input_set_flags)           \
  X(Table, hb_subset_plan_create_or_fail)       \
  X(Table, hb_subset_plan_destroy)              \
  X(Table, hb_subset_plan_execute_or_fail)      \
  X(Table, hb_subset_plan_old_to_new_glyph_mapping)
VELLUMARK_LOADED_LIBRARY(SubsetterLibrary, VELLUMARK_SONAME_HARFBUZZ_SUBSET,
                         VELLUMARK_SUBSETTER_FUNCTIONS)

#define VELLUMARK_FRIBIDI_FUNCTIONS(X, Table) \
  X(Table, fribidi_get_bidi_types)            \
  X(Table, fribidi_get_bracket_types)         \
  X(Table, fribidi_get_mirror_char)           \
  X(Table, fribidi_get_par_embedding_levels_ex)
VELLUMARK_LOADED_LIBRARY(FriBidiLibrary, VELLUMARK_SONAME_FRIBIDI, VELLUMARK_FRIBIDI_FUNCTIONS)

#define VELLUMARK_UNIBREAK_FUNCTIONS(X, Table) \
  X(Table, init_linebreak)                     \
  X(Table, set_linebreaks_utf32)
VELLUMARK_LOADED_LIBRARY(UnibreakLibrary, VELLUMARK_SONAME_UNIBREAK, VELLUMARK_UNIBREAK_FUNCTIONS)

#define VELLUMARK_THAI_FUNCTIONS(X, Table) \
  X(Table, th_brk_delete)                  \
  X(Table, th_brk_new)                     \
  X(Table, th_brk_wc_find_breaks)
VELLUMARK_LOADED_LIBRARY(ThaiLibrary, VELLUMARK_SONAME_THAI, VELLUMARK_THAI_FUNCTIONS)

/// Loads them all; returns which one is missing, and why, or an empty text. Nothing else of this
/// room may be called before it returned one.
[[nodiscard]] std::string LoadFontLibraries();

}  // namespace vellumark::fonts
