// SPDX-License-Identifier: MIT
//
// SetPlainText: a text as it stands, in Courier, line by line.
//
//     SetPlainText(text, pages, style, measure, progress);
//
// A line that is too long is broken at the last column. A form feed starts a page, a tab goes to
// the next multiple of eight columns. Overstrikes are those of man pages and old printers: a
// character, a backspace and the character again are bold, an underline and a backspace underline
// what follows. Escape sequences that color text on a terminal are left out.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "tools/page_writer.h"
#include "tools/text_style.h"

namespace vellumark::tools {

/// Called for each line, with its number from 1.
using LineProgress = std::function<void(std::size_t line)>;

/// Begins at the current position, at the top of a page.
void SetPlainText(std::string_view text, PageWriter& pages, const TextStyle& style,
                  TextMeasure& measure, const LineProgress& progress);

}  // namespace vellumark::tools
