// SPDX-License-Identifier: MIT
//
// WriteNotes: one line for everything of a text that the document does not show as it should.
//
//     vellumark: "?" stands for 1 character that the fonts lack: U+65E5; the first is at line 3,
//     column 5
//     vellumark: picture logo.png at line 7, column 1: not a BMP, GIF, JPG or PNG file
#pragma once

#include <iosfwd>
#include <string_view>

#include "tools/typeset_result.h"

namespace vellumark::tools {

/// `text` is the input that `result` is about; its name is told if it is not empty.
void WriteNotes(const TypesetResult& result, std::string_view text, std::string_view name,
                std::ostream& stream);

}  // namespace vellumark::tools
