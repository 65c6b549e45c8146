// SPDX-License-Identifier: MIT
#include "fonts/font_engine.h"

namespace vellumark::fonts {

std::unique_ptr<layout::FontEngine> MakeFontEngine(std::string& reason) {
  reason.clear();
  return nullptr;
}

}  // namespace vellumark::fonts
