// SPDX-License-Identifier: MIT
#include "tools/system_fonts.h"

#include <fontconfig/fontconfig.h>
#include <memory>

#include "tools/utf8_text.h"

namespace vellumark::tools {
namespace {

struct Destroy {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
  void operator()(FcCharSet* characters) const { FcCharSetDestroy(characters); }
  void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
template <class T>
using Owned = std::unique_ptr<T, Destroy>;

/// Whether a document can embed it.
bool HasOutlines(FcPattern* font) {
  FcChar8* format = nullptr;
  FcBool variable = FcFalse;
  FcPatternGetBool(font, FC_VARIABLE, 0, &variable);
  if (FcPatternGetString(font, FC_FONTFORMAT, 0, &format) != FcResultMatch) return false;
  const std::string_view name(reinterpret_cast<const char*>(format));
  return variable == FcFalse && (name == "TrueType" || name == "CFF");
}

}  // namespace

std::vector<std::string> FontsThatShow(std::string_view characters) {
  constexpr std::size_t kMostFonts = 16;
  std::vector<std::string> files;
  const Owned<FcCharSet> all(FcCharSetCreate());
  for (std::size_t at = 0; at < characters.size();) {
    FcCharSetAddChar(all.get(), NextCharacter(characters, at));
  }
  const Owned<FcPattern> pattern(FcPatternCreate());
  FcPatternAddCharSet(pattern.get(), FC_CHARSET, all.get());
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern.get(), FC_SLANT, FC_SLANT_ROMAN);
  FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
  FcDefaultSubstitute(pattern.get());
  FcResult result = FcResultMatch;
  const Owned<FcFontSet> fonts(FcFontSort(nullptr, pattern.get(), FcFalse, nullptr, &result));
  if (!fonts) return files;
  Owned<FcCharSet> left(FcCharSetCopy(all.get()));
  for (int i = 0; i < fonts->nfont && files.size() < kMostFonts; ++i) {
    FcPattern* const font = fonts->fonts[i];
    FcCharSet* has = nullptr;
    FcChar8* file = nullptr;
    int index = 0;
    if (!HasOutlines(font) || FcPatternGetCharSet(font, FC_CHARSET, 0, &has) != FcResultMatch ||
        FcPatternGetString(font, FC_FILE, 0, &file) != FcResultMatch) {
      continue;
    }
    FcPatternGetInteger(font, FC_INDEX, 0, &index);
    if (FcCharSetIntersectCount(left.get(), has) == 0) continue;
    files.push_back(std::string(reinterpret_cast<const char*>(file)) + '#' +
                    std::to_string(index & 0xFFFF));
    left.reset(FcCharSetSubtract(left.get(), has));
    if (FcCharSetCount(left.get()) == 0) break;
  }
  return files;
}

}  // namespace vellumark::tools
