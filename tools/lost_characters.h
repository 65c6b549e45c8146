// SPDX-License-Identifier: MIT
//
// PlaceOfCharacter: where the input has a character that the document could not show.
//
//     const std::optional<Place> place = PlaceOfCharacter(U'日', tree.root(), text);
#pragma once

#include <optional>
#include <string_view>

#include "tools/markdown_tree.h"
#include "tools/source_place.h"

namespace vellumark::tools {

/// The first place of `character` in the text of the tree that was made of `source`; nothing if no
/// text has it.
[[nodiscard]] std::optional<Place> PlaceOfCharacter(char32_t character, cmark_node* root,
                                                    std::string_view source);

}  // namespace vellumark::tools
