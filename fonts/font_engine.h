// SPDX-License-Identifier: MIT
//
// MakeFontEngine: the library's FontEngine (layout/font_face.h), made of HarfBuzz, FriBidi,
// libunibreak and libthai. They are known in this room only.
//
//     std::unique_ptr<layout::FontEngine> engine = fonts::MakeFontEngine();
//     if (!engine) ...                       // a build without fonts (VELLUMARK_FONTS=OFF)
#pragma once

#include <memory>

#include "layout/font_face.h"

namespace vellumark::fonts {

/// Null in a build without fonts.
[[nodiscard]] std::unique_ptr<layout::FontEngine> MakeFontEngine();

}  // namespace vellumark::fonts
