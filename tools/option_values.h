// SPDX-License-Identifier: MIT
//
// The values of options as words, in upper or lower case.
//
// Each function returns nothing if the text is not such a value. The lists are for the help and for
// error messages.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <vellumark/vellumark.h>

#include "tools/output_format.h"
#include "tools/page_writer.h"

namespace vellumark::tools {

inline constexpr std::string_view kPaperNames =
    "a3, a4, a5, executive, folio, ledger, legal, letter, tabloid";
inline constexpr std::string_view kOrientationNames = "portrait, landscape";
inline constexpr std::string_view kFormatNames = "pdf, ps";
inline constexpr std::string_view kEncodingNames = "original, ascii85, hex, runlength, flate";
inline constexpr std::string_view kFontNames = "courier, helvetica, times";
inline constexpr std::string_view kColorNames =
    "white, ivory, beige, cream, linen, snow, silver, lightgray, lightyellow, lightblue, "
    "lightgreen, pink";

[[nodiscard]] std::optional<PaperSizeConstants> ParsePaper(std::string_view name);
[[nodiscard]] std::optional<OrientationConstants> ParseOrientation(std::string_view name);
[[nodiscard]] std::optional<Format> ParseFormat(std::string_view name);
[[nodiscard]] std::optional<EncodingConstants> ParseEncoding(std::string_view name);
[[nodiscard]] std::optional<FontNumberConstants> ParseFont(std::string_view name);

/// A name or "#rrggbb".
[[nodiscard]] std::optional<Rgb> ParseColor(std::string_view text);

/// "72" for all four, or "left,top,right,bottom"; whole points from 0 to 2000.
[[nodiscard]] std::optional<Margins> ParseMargins(std::string_view text);

/// A whole number from `least` to `most`, digits only.
[[nodiscard]] std::optional<int> ParseNumber(std::string_view text, int least, int most);

}  // namespace vellumark::tools
