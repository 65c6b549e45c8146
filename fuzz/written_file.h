// SPDX-License-Identifier: MIT
//
// Reads a file that this library has written by the rules that the file itself states, strictly.
//
//     const std::string fault = FaultOfPdf(file);            // conforming
//     if (!fault.empty()) ...                                // "object 7 does not end with endobj"
//
// Of both outputs: every object number from 1 to /Size is defined once and nothing else is; every
// cross-reference entry, startxref and stream length is what the writer counts; as many pages as
// /Count and /Kids say. Of a conforming file also: nothing lies between the objects, every
// reference leads to an object and every object is referred to.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::fuzz {

/// The first fault of a conforming file; empty if there is none.
[[nodiscard]] std::string FaultOfPdf(std::string_view file);

/// The same of a classic file, whose offsets and lengths do not count line ends. Its texts must
/// have none.
[[nodiscard]] std::string FaultOfClassicPdf(std::string_view file);

/// The same of a PostScript file of either output.
[[nodiscard]] std::string FaultOfPs(std::string_view file, bool conforming);

}  // namespace vellumark::fuzz
