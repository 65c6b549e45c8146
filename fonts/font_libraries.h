// SPDX-License-Identifier: MIT
//
// The functions of HarfBuzz, its subsetter, FriBidi, libunibreak and libthai that this room calls.
// Most documents load no font, so these libraries are loaded with the first one: a program that
// loads none starts as fast, and takes as little memory, as if they did not exist.
//
//     if (std::string reason = LoadFontLibraries(); !reason.empty()) ...   // "libthai.so.0: ..."
//     hb_shape(font, buffer, nullptr, 0);                                  // as ever
//
// In this namespace each name is an object that calls the function of the library, so that the
// sources of this room read as those of any other user of the libraries. In a build that is linked
// with them (VELLUMARK_FONTS_LINKED) the names are the functions themselves.
#pragma once

#include <fribidi.h>
#include <hb-ot.h>
#include <hb-subset.h>
#include <hb.h>
#include <linebreak.h>
#include <string>
#include <thai/thbrk.h>
#include <thai/thwbrk.h>

namespace vellumark::fonts {

/// Loads the libraries, if they are not loaded yet; from any thread. They stay until the process
/// ends. Returns which one is missing, and why, or an empty text. Nothing else of this room may be
/// called before it returned one.
[[nodiscard]] std::string LoadFontLibraries();

#if !VELLUMARK_FONTS_LINKED

#define VELLUMARK_HARFBUZZ_FUNCTIONS(X) \
  X(hb_blob_create)                     \
  X(hb_blob_destroy)                    \
  X(hb_blob_get_data)                   \
  X(hb_blob_get_empty)                  \
  X(hb_buffer_add_utf8)                 \
  X(hb_buffer_allocation_successful)    \
  X(hb_buffer_clear_contents)           \
  X(hb_buffer_create)                   \
  X(hb_buffer_destroy)                  \
  X(hb_buffer_get_glyph_infos)          \
  X(hb_buffer_get_glyph_positions)      \
  X(hb_buffer_guess_segment_properties) \
  X(hb_buffer_set_cluster_level)        \
  X(hb_buffer_set_direction)            \
  X(hb_buffer_set_flags)                \
  X(hb_buffer_set_language)             \
  X(hb_buffer_set_script)               \
  X(hb_face_count)                      \
  X(hb_face_create)                     \
  X(hb_face_destroy)                    \
  X(hb_face_get_empty)                  \
  X(hb_face_get_glyph_count)            \
  X(hb_face_get_table_tags)             \
  X(hb_face_get_upem)                   \
  X(hb_face_reference_blob)             \
  X(hb_face_reference_table)            \
  X(hb_font_create)                     \
  X(hb_font_destroy)                    \
  X(hb_font_get_empty)                  \
  X(hb_font_get_glyph_h_advance)        \
  X(hb_font_get_nominal_glyph)          \
  X(hb_font_set_scale)                  \
  X(hb_language_from_string)            \
  X(hb_map_get)                         \
  X(hb_ot_font_set_funcs)               \
  X(hb_ot_name_get_utf8)                \
  X(hb_set_add)                         \
  X(hb_set_allocation_successful)       \
  X(hb_set_del)                         \
  X(hb_shape)                           \
  X(hb_unicode_compose)                 \
  X(hb_unicode_decompose)               \
  X(hb_unicode_funcs_get_default)       \
  X(hb_unicode_general_category)        \
  X(hb_unicode_script)
#define VELLUMARK_SUBSETTER_FUNCTIONS(X) \
  X(hb_subset_input_create_or_fail)      \
  X(hb_subset_input_destroy)             \
  X(hb_subset_input_glyph_set)           \
  X(hb_subset_input_set)                 \
  X(hb_subset_input_set_flags)           \
  X(hb_subset_plan_create_or_fail)       \
  X(hb_subset_plan_destroy)              \
  X(hb_subset_plan_execute_or_fail)      \
  X(hb_subset_plan_old_to_new_glyph_mapping)
#define VELLUMARK_FRIBIDI_FUNCTIONS(X) \
  X(fribidi_get_bidi_types)            \
  X(fribidi_get_bracket_types)         \
  X(fribidi_get_mirror_char)           \
  X(fribidi_get_par_embedding_levels_ex)
#define VELLUMARK_UNIBREAK_FUNCTIONS(X) \
  X(init_linebreak)                     \
  X(set_linebreaks_utf32)
#define VELLUMARK_THAI_FUNCTIONS(X) \
  X(th_brk_delete)                  \
  X(th_brk_new)                     \
  X(th_brk_wc_find_breaks)
#define VELLUMARK_FONT_FUNCTIONS(X) \
  VELLUMARK_HARFBUZZ_FUNCTIONS(X)   \
  VELLUMARK_SUBSETTER_FUNCTIONS(X)  \
  VELLUMARK_FRIBIDI_FUNCTIONS(X)    \
  VELLUMARK_UNIBREAK_FUNCTIONS(X)   \
  VELLUMARK_THAI_FUNCTIONS(X)

/// Where the functions are.
struct FontFunctions {
#define VELLUMARK_MEMBER(name) decltype(&::name) name = nullptr;
  VELLUMARK_FONT_FUNCTIONS(VELLUMARK_MEMBER)
#undef VELLUMARK_MEMBER
};

/// Those of the loaded libraries. Loads them; throws std::runtime_error with the reason.
const FontFunctions& LoadedFunctions();

/// Calls one of them, with the arguments that the library's own declaration asks for.
template <auto Function>
struct Imported;
template <class Returned, class... Arguments, Returned (*FontFunctions::*Function)(Arguments...)>
struct Imported<Function> {
  Returned operator()(Arguments... arguments) const {
    return (LoadedFunctions().*Function)(arguments...);
  }
};

#define VELLUMARK_IMPORT(name) inline constexpr Imported<&FontFunctions::name> name;
VELLUMARK_FONT_FUNCTIONS(VELLUMARK_IMPORT)
#undef VELLUMARK_IMPORT

#endif

}  // namespace vellumark::fonts
