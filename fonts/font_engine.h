// SPDX-License-Identifier: MIT
//
// MakeFontEngine: the library's FontEngine (layout/font_face.h), made of HarfBuzz, FriBidi,
// libunibreak and libthai. They are known in this room only.
//
//     std::string reason;
//     std::unique_ptr<layout::FontEngine> engine = fonts::MakeFontEngine(reason);
//     if (!engine && reason.empty()) ...     // a build without fonts (VELLUMARK_FONTS=OFF)
//     if (!engine) ...                       // "libharfbuzz.so.0: cannot open shared object file"
#pragma once

#include <memory>
#include <string>

#include "layout/font_face.h"

namespace vellumark::fonts {

/// Null in a build without fonts, with an empty reason, and if a library of those above is missing,
/// with the words of the system that say so.
[[nodiscard]] std::unique_ptr<layout::FontEngine> MakeFontEngine(std::string& reason);

}  // namespace vellumark::fonts
