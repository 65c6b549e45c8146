// SPDX-License-Identifier: MIT
//
// TextStyle: what the user may choose about the look of a document, and the faces that follow.
#pragma once

#include <vellumark/vellumark.h>

#include "tools/page_writer.h"
#include "tools/type_scale.h"
#include "tools/words.h"

namespace vellumark::tools {

struct TextStyle {
  FontNumberConstants font = FontNumberConstants::Times;
  int size = 11;
  bool justify = true;
  bool has_cover = false;
  bool has_contents = false;                                ///< the headings are kept for the table
  EncodingConstants encoding = EncodingConstants::ASCII85;  ///< of pictures
  PageSetup page;  ///< its largest_size is ignored, and computed from `size`

  /// The faces of text of `size` points, and of code within it.
  [[nodiscard]] BlockFaces Faces(int points, FontStyleConstants face_style) const {
    const auto text_size = static_cast<std::uint8_t>(points);
    const auto code_size = static_cast<std::uint8_t>(InlineCodeSize(points));
    return {{font, face_style, text_size}, {FontNumberConstants::Courier, face_style, code_size}};
  }

  /// The faces of the text itself.
  [[nodiscard]] BlockFaces TextFaces() const { return Faces(size, FontStyleConstants::Regular); }
};

inline constexpr Rgb kRuleColor{128, 128, 128};
inline constexpr Rgb kThinRuleColor{200, 200, 200};
inline constexpr Rgb kCodeBackground{242, 242, 242};

}  // namespace vellumark::tools
