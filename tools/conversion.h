// SPDX-License-Identifier: MIT
//
// Convert: from texts to the bytes of a finished document.
//
//     const Converted done = Convert(sources, options, std::cerr);
//
// If a justified document runs out of object numbers (a PDF has 32,767), the text is set again,
// ragged, which needs far fewer; `notes` then gets a line that says so. It gets another line if
// there were characters that the fonts lack, and one for each picture that could not be drawn. If
// the text does not fit at all, Failure is thrown.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tools/options.h"
#include "tools/source.h"

namespace vellumark::tools {

struct Converted {
  std::string bytes;
  bool complete = true;  ///< false if a picture is missing
};

/// There must be one source at least; each begins on a page of its own.
[[nodiscard]] Converted Convert(const std::vector<Source>& sources, const Options& options,
                                std::ostream& notes);

}  // namespace vellumark::tools
