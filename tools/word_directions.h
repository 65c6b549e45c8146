// SPDX-License-Identifier: MIT
//
// FindDirections: which words of a paragraph stand in which order. The library puts the letters of
// a word in order; the host puts the words on their lines.
//
//     if (FindDirections(words)) ...             // the first letter is Hebrew: from the right
//     words[2].against_the_line                  // a Latin word in it
//
// It is the Unicode bidirectional algorithm, for words: the first letter of a paragraph decides how
// it runs, and in text from right to left, neighboring words and numbers from left to right keep
// their order.
#pragma once

#include <vector>

#include "tools/words.h"

namespace vellumark::tools {

/// Returns whether the paragraph runs from right to left, and marks its words if it does.
bool FindDirections(std::vector<Word>& words);

}  // namespace vellumark::tools
