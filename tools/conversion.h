// SPDX-License-Identifier: MIT
//
// A conversion from text to a finished document in memory.
//
//     const Converted done = Convert(text, options, std::cerr);
//
// A justified document that does not hold the text is set again, ragged, which takes far less of
// the format's 32,767 object numbers; `notes` then gets a line that says so, another if there
// were characters that the fonts lack, and one for each picture that could not be drawn. A text
// that does not fit at all throws Failure.
#pragma once

#include <iosfwd>
#include <string>

#include "tools/options.h"

namespace vellumark::tools {

struct Converted {
  std::string bytes;
  bool complete = true;  ///< false where a picture is missing
};

[[nodiscard]] Converted Convert(const std::string& text, const Options& options,
                                std::ostream& notes);

}  // namespace vellumark::tools
