// SPDX-License-Identifier: MIT
#include "fonts/font_engine.h"

#include <new>
#include <utility>

#include "fonts/font_file.h"
#include "fonts/font_libraries.h"
#include "fonts/harfbuzz_face.h"
#include "fonts/line_breaks.h"

namespace vellumark::fonts {
namespace {

static_assert(sizeof(FriBidiChar) == sizeof(char32_t));

const FriBidiChar* FriBidiText(std::u32string_view text) {
  return reinterpret_cast<const FriBidiChar*>(text.data());
}

class Engine final : public layout::FontEngine {
 public:
  std::unique_ptr<layout::FontFace> Load(std::vector<std::uint8_t> bytes, int index,
                                         std::string& reason) override {
    auto file = std::make_unique<FontFile>(std::move(bytes), index);
    reason = file->Refused();
    if (!reason.empty()) return nullptr;
    auto face = std::make_unique<HarfBuzzFace>(std::move(file));
    // TrueType outlines were looked at; those of CFF are known to be there when they are read.
    if (face->Facts().outlines == layout::Outlines::TrueType || face->CanBeSubset()) return face;
    reason = "it is damaged: its glyphs cannot be read";
    return nullptr;
  }

  std::uint8_t FindLevels(std::u32string_view text, std::vector<std::uint8_t>& levels) override {
    const auto count = static_cast<FriBidiStrIndex>(text.size());
    types_.resize(text.size());
    brackets_.resize(text.size());
    found_levels_.resize(text.size());
    levels.assign(text.size(), 0);
    if (text.empty()) return 0;
    fribidi_get_bidi_types(FriBidiText(text), count, types_.data());
    fribidi_get_bracket_types(FriBidiText(text), count, types_.data(), brackets_.data());
    FriBidiParType direction = FRIBIDI_PAR_ON;
    const FriBidiLevel highest = fribidi_get_par_embedding_levels_ex(
        types_.data(), brackets_.data(), count, &direction, found_levels_.data());
    if (highest == 0) throw std::bad_alloc();
    for (std::size_t i = 0; i < text.size(); ++i) {
      levels[i] = static_cast<std::uint8_t>(found_levels_[i]);
    }
    return FRIBIDI_IS_RTL(direction) ? 1 : 0;
  }

  void FindScripts(std::u32string_view text, std::vector<layout::Script>& scripts) override {
    scripts.assign(text.size(), 0);
    hb_unicode_funcs_t* const unicode = hb_unicode_funcs_get_default();
    layout::Script before = 0;
    std::size_t unknown = 0;  // characters at the front that belong to all scripts
    for (std::size_t i = 0; i < text.size(); ++i) {
      const hb_script_t script = hb_unicode_script(unicode, text[i]);
      const bool shared = script == HB_SCRIPT_COMMON || script == HB_SCRIPT_INHERITED ||
                          script == HB_SCRIPT_UNKNOWN;
      if (!shared) {
        if (before == 0) std::fill_n(scripts.begin(), unknown, static_cast<layout::Script>(script));
        before = static_cast<layout::Script>(script);
      } else if (before == 0) {
        ++unknown;
      }
      scripts[i] = before;
    }
  }

  void FindBreaks(std::u32string_view text, std::vector<std::uint8_t>& breaks) override {
    line_breaks_.Find(text, breaks);
  }

  [[nodiscard]] char32_t Mirrored(char32_t character) const override {
    FriBidiChar mirrored = character;
    fribidi_get_mirror_char(character, &mirrored);
    return mirrored;
  }

  [[nodiscard]] bool IsMark(char32_t character) const override {
    const auto category = hb_unicode_general_category(hb_unicode_funcs_get_default(), character);
    return category == HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK ||
           category == HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK;
  }

 private:
  std::vector<FriBidiCharType> types_;
  std::vector<FriBidiBracketType> brackets_;
  std::vector<FriBidiLevel> found_levels_;
  LineBreaks line_breaks_;
};

}  // namespace

std::unique_ptr<layout::FontEngine> MakeFontEngine(std::string& reason) {
  reason = LoadFontLibraries();
  return reason.empty() ? std::make_unique<Engine>() : nullptr;
}

}  // namespace vellumark::fonts
