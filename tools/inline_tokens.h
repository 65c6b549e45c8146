// SPDX-License-Identifier: MIT
//
// The pieces that inline text is first cut into: plain pieces, and runs of "*" or "_" that may
// begin or end an emphasis. ResolveEmphasis then decides which of them do.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "tools/markdown_inline.h"

namespace vellumark::tools {

struct InlineToken {
  Span span;
  char mark = 0;  ///< '*' or '_' for a delimiter of 1 (italic) or 2 (bold) of them; 0 for plain
  bool can_open = false;
  bool can_close = false;
};

/// Plain text and delimiters in order; marks that found no counterpart are plain text.
[[nodiscard]] std::vector<Span> ResolveEmphasis(const std::vector<InlineToken>& tokens);

}  // namespace vellumark::tools
