// SPDX-License-Identifier: MIT
//
// TypesetResult: what is told about a document after it was set.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "tools/inline_text.h"
#include "tools/source_place.h"

namespace vellumark::tools {

/// A picture that could not be drawn.
struct LostPicture {
  std::string file;
  std::string reason;
  SourcePosition position;
};

struct TypesetResult {
  int pages = 0;
  std::size_t line = 0;     ///< of the input, where the last block begins
  std::size_t missing = 0;  ///< characters that the fonts lack
  char32_t first_missing = 0;
  SourcePosition missing_position;  ///< of the first of them, or left of it in its line
  std::vector<LostPicture> lost_pictures;
  std::size_t remote_pictures = 0;
  OmittedHtml omitted;
};

}  // namespace vellumark::tools
