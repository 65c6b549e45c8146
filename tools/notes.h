// SPDX-License-Identifier: MIT
//
// WriteNotes: one line for everything of a text that the document does not show as it should.
//
//     vellumark: 3 characters are not in the fonts and were set as "?"; first: U+65E5 at line 3,
//     ... vellumark: picture logo.png at line 7, column 1: not a BMP, GIF, JPG or PNG file
#pragma once

#include <iosfwd>
#include <string_view>

#include "tools/typeset_result.h"

namespace vellumark::tools {

/// `text` is the input that `result` is about.
void WriteNotes(const TypesetResult& result, std::string_view text, std::ostream& stream);

}  // namespace vellumark::tools
