// SPDX-License-Identifier: MIT
//
// RunningHeads: the texts above and below every page.
//
//     const RunningHeads heads{"", "{page} of {pages}"};
//     SetRunningHeads(heads, margins, document);
//
// {page} and {pages} stand for the page's number and the number of pages, {{ for a brace.
#pragma once

#include <string>

#include <vellumark/vellumark.h>

#include "tools/page_writer.h"

namespace vellumark::tools {

struct RunningHeads {
  std::string header;
  std::string footer = "{page}";
};

/// For the pages of a created document, which `margins` are the user's of. Throws Failure if a text
/// does not fit between them, or if there is no room for the header above the text.
void SetRunningHeads(const RunningHeads& heads, const Margins& margins, Document& document);

}  // namespace vellumark::tools
