// SPDX-License-Identifier: MIT
//
// Prolog: the procedures that the pages of a conforming document are written in. They lie in a
// dictionary of their own, so that no other program's names collide with them.
//
//     0 0 1 C   0.5 G         color of lines and texts, as RGB or gray
//     1 0 0 H   0.5 h         color to fill with
//     2 W   [3 2]D            line width; dash
//     S   B                   paint a path: stroke it; fill, then stroke it
//     x1 y1 x2 y2 L           a line, stroked
//     x y w h R               path of a rectangle from its top left corner, downwards
//     cx cy x2 y2 x1 y1 V     path of a curve from 1 to 2, pulled to c
//     x y r O   x y rx ry E   path of a circle; of an ellipse
//     x y r a1 a2 A           path of a slice
//     F4 12 f                 font and size
//     (text)x y T   (more)t   a text; what follows it
//     {x1(a)x2(b)}y J         the words of a line, each at its place
//     <<image>>{filters}/text I
//                             a picture: the dictionary without its source, what filters the data
//                             besides that of its text, and that; behind it the data. The graphics
//                             state is restored
//     /F4/key/font encoding{code/name width ...}N
//                             F4 as the font with some codes and their widths changed; an encoding
//                             of null is the font's own
#pragma once

#include <string_view>

namespace vellumark::ps {

/// Lines with a line feed between them, none behind the last.
[[nodiscard]] std::string_view Prolog() noexcept;

}  // namespace vellumark::ps
