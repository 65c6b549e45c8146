// SPDX-License-Identifier: MIT
//
// CidKeyedCff: a CFF table whose glyphs are named by numbers of the document's own.
//
//     CidKeyedCff(subset, cids, "ABCDEF+Name")
//
// A subset numbers its glyphs as it likes, and by names or numbers of its own; texts have been
// written with other numbers by then. So the table's head is written anew, as that of a CID-keyed
// font with the ordering Identity, with a charset of these numbers; behind it the glyphs stay as
// they are, and move together. A font that was not CID-keyed becomes one with a single font
// dictionary. (Adobe Technical Note 5176.)
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace vellumark::fonts {

/// `cids` has a number for each glyph of `table`; the first is 0. Raises run-time error 13 for a
/// table that is not one of so many glyphs.
[[nodiscard]] std::vector<std::uint8_t> CidKeyedCff(std::span<const std::uint8_t> table,
                                                    std::span<const std::uint16_t> cids,
                                                    std::string_view name);

}  // namespace vellumark::fonts
