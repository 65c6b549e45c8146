// SPDX-License-Identifier: MIT
//
// AddLostBytes: which characters of a text a reader of a classic document does not see.
#pragma once

#include <string_view>

#include <vellumark/platform.h>

#include "layout/font.h"
#include "layout/lost_characters.h"

namespace vellumark::document {

/// Adds to `lost` the characters of `utf8` that a reader of a classic document does not see as
/// themselves: those that the code page lacks, and those whose byte is another glyph in the fonts'
/// own encoding. The apostrophe and the grave accent, which are shown curly, are not counted; in
/// Symbol and ZapfDingbats a byte is the code of whatever glyph is there.
void AddLostBytes(Platform& platform, std::string_view utf8, const layout::Font& font,
                  layout::LostCharacters& lost);

}  // namespace vellumark::document
