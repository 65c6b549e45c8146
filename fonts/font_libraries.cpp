// SPDX-License-Identifier: MIT
#include "fonts/font_libraries.h"

namespace vellumark::fonts {

std::string LoadFontLibraries() {
  for (const auto load : {HarfBuzzLibrary::Load, SubsetterLibrary::Load, FriBidiLibrary::Load,
                          UnibreakLibrary::Load, ThaiLibrary::Load}) {
    if (std::string reason = load(); !reason.empty()) return reason;
  }
  return {};
}

}  // namespace vellumark::fonts
