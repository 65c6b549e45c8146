// SPDX-License-Identifier: MIT
//
// ReadHtml: what a document keeps of raw HTML, which is its text, line breaks and pictures.
//
//     for (const HtmlPiece& piece : ReadHtml("<p>a &lt; b<br><img src='c.png' alt='d'></p>")) ...
//     // Element "p", Paragraph, Text "a < b", Break, Picture "c.png" "d", Paragraph
//
// A tag that has no end is text, and so is all that follows it. Comments, declarations, and the
// contents of scripts and style sheets are not text. Time is linear, and any bytes are accepted.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vellumark::tools {

struct HtmlPiece {
  enum class Kind {
    Text,
    Break,      ///< the line ends
    Paragraph,  ///< the start or end of an element that has lines of its own, such as div
    Picture,
    Anchor,   ///< a place that links lead to: an element with an id, or <a name="...">
    Element,  ///< the start of an element, of which only the content is kept
  };

  Kind kind = Kind::Text;
  std::string text;      ///< on one line, with entities decoded; the alternative text, the id, or
                         ///< the name of the element
  std::string file;      ///< of a picture
  std::size_t line = 0;  ///< how many line ends of the HTML are before the piece
};

[[nodiscard]] std::vector<HtmlPiece> ReadHtml(std::string_view html);

}  // namespace vellumark::tools
