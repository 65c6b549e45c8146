// SPDX-License-Identifier: MIT
//
// The loaded fonts that a document shows, each with the glyphs that it shows, as what the file's
// setup declares (language level 3): TrueType outlines as a CIDFont of type 2, CFF outlines as one
// of type 0 in a FontSet, under the CMap Identity-H.
//
//     %%BeginResource: CIDFont ABCDEF+Name
//     ...
//     %%EndResource
//     /F101/Vellumark-F101/Identity-H[/ABCDEF+Name/CIDFont findresource]composefont def
#pragma once

#include <span>
#include <string>

#include "document/glyph_use.h"

namespace vellumark::ps {

/// The comments that name them; each line ends with a line feed.
[[nodiscard]] std::string SuppliedResources(std::span<document::GlyphUse::Font* const> fonts);

/// What defines them, and the procedure K; each line ends with a line feed. In the dictionary of
/// the prolog.
[[nodiscard]] std::string EmbeddedFonts(std::span<document::GlyphUse::Font* const> fonts);

}  // namespace vellumark::ps
