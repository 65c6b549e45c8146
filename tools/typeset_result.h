// SPDX-License-Identifier: MIT
//
// TypesetResult: what is told about a document after it was set.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/inline_text.h"
#include "tools/source_place.h"
#include "tools/table_of_contents.h"

namespace vellumark::tools {

/// A picture that could not be drawn.
struct LostPicture {
  std::string file;
  std::string reason;
  SourcePosition position;
};

/// Links to places that do not exist.
struct LostLinks {
  std::size_t count = 0;
  std::string first;  ///< the address of the first one
  SourcePosition position;
};

struct TypesetResult {
  int pages = 0;
  std::size_t line = 0;             ///< of the input, where the last block begins
  std::string lost_characters;      ///< each character that the fonts lack, once
  std::optional<Place> first_lost;  ///< of the first of them
  std::vector<LostPicture> lost_pictures;
  std::size_t remote_pictures = 0;
  OmittedHtml omitted;
  LostLinks lost_links;
  std::vector<PlacedHeading> headings;
};

}  // namespace vellumark::tools
