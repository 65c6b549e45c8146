// SPDX-License-Identifier: MIT
//
// A conversion from text to a finished document in memory.
//
//     const std::string bytes = Convert(text, options, std::cerr);
//
// A justified document that does not hold the text is set again, ragged, which takes far less of
// the format's 32,767 object numbers; `notes` then gets a line that says so, and another if there
// were characters that the fonts lack. A text that does not fit at all throws Failure.
#pragma once

#include <iosfwd>
#include <string>

#include "tools/options.h"

namespace vellumark::tools {

[[nodiscard]] std::string Convert(const std::string& text, const Options& options,
                                  std::ostream& notes);

}  // namespace vellumark::tools
