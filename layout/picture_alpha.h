// SPDX-License-Identifier: MIT
//
// ComposeOver: a picture with transparency as it looks on paper of one color.
//
//     if (!picture.alpha.empty()) ComposeOver({255, 255, 255}, picture);
//
// For languages and outputs that paint every pixel.
#pragma once

#include "layout/color_text.h"
#include "layout/picture.h"

namespace vellumark::layout {

/// Mixes each pixel with `paper`, as far as the pixel is not opaque. The picture, of 24 bits or
/// with a palette, then has 24 bits and no alpha.
void ComposeOver(const Rgb& paper, Picture& picture);

}  // namespace vellumark::layout
