// SPDX-License-Identifier: MIT
//
// Convert: from a text to the bytes of a finished document.
//
//     const Converted done = Convert(text, options, std::cerr);
//
// If a justified document runs out of object numbers (a PDF has 32,767), the text is set again,
// ragged, which needs far fewer; `notes` then gets a line that says so. It gets another line if
// there were characters that the fonts lack, and one for each picture that could not be drawn. If
// the text does not fit at all, Failure is thrown.
#pragma once

#include <iosfwd>
#include <string>

#include "tools/options.h"

namespace vellumark::tools {

struct Converted {
  std::string bytes;
  bool complete = true;  ///< false if a picture is missing
};

[[nodiscard]] Converted Convert(const std::string& text, const Options& options,
                                std::ostream& notes);

}  // namespace vellumark::tools
