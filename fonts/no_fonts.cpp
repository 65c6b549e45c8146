// SPDX-License-Identifier: MIT
#include "fonts/font_engine.h"

namespace vellumark::fonts {

std::unique_ptr<layout::FontEngine> MakeFontEngine() { return nullptr; }

}  // namespace vellumark::fonts
