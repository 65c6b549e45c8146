// SPDX-License-Identifier: MIT
//
// Convert: from texts to a finished document.
//
//     OutputFile output("notes.pdf", inputs);
//     const bool complete = Convert(sources, options, output, std::cerr);
//
// If a justified document runs out of object numbers (a PDF has 32,767), the text is set again,
// ragged, which needs far fewer; `notes` then gets a line that says so. It gets another line if
// there were characters that the fonts lack, and one for each picture that could not be drawn. If
// the text does not fit at all, Failure is thrown.
#pragma once

#include <iosfwd>
#include <vector>

#include "tools/document_sink.h"
#include "tools/options.h"
#include "tools/source.h"

namespace vellumark::tools {

/// There must be one source at least; each begins on a page of its own. Returns false if a picture
/// is missing.
[[nodiscard]] bool Convert(const std::vector<Source>& sources, const Options& options,
                           DocumentSink& output, std::ostream& notes);

}  // namespace vellumark::tools
