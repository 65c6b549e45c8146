// SPDX-License-Identifier: MIT
//
// UnicodeMap: which text each two-byte code of an embedded font stands for, as the CMap that
// readers search and copy by.
//
//     UnicodeMap({"", "f", "fi"})            // <0001> <0066>  and  <0002> <00660069>
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::pdf {

/// `texts` are UTF-8, by code; an empty one is left out.
[[nodiscard]] std::string UnicodeMap(std::span<const std::string> texts);

/// What stands around the lines of a CMap for codes of as many bytes.
[[nodiscard]] std::string UnicodeMapOf(std::string_view first_code, std::string_view last_code,
                                       const std::vector<std::string>& ranges,
                                       const std::vector<std::string>& singles);

/// "<0041>", in as many digits as are asked for.
[[nodiscard]] std::string HexCode(unsigned number, int digits);

}  // namespace vellumark::pdf
