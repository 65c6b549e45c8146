// SPDX-License-Identifier: MIT
//
// CommentText: any text as the text of a structuring comment, such as %%Title.
//
//     lines.Append("%%Title: ", CommentText("Bücherei"));          // %%Title: (B\374cherei)
//
//     printable ASCII                     as it is
//     U+00A0 to U+00FF                    octal, by its ISO Latin-1 code
//     line ends and other controls        one blank; CR LF together are one
//     letters with a mark, quotes, dashes ASCII that is like them: "ř" is "r"
//     other characters, bytes that are no "?"
//       UTF-8
//
// The text stands in parentheses, escaped, where it is empty, has octal codes, begins with "(" or
// has blanks that a reader would take away. It is cut at a character so that it has at most 200
// bytes.
#pragma once

#include <string>
#include <string_view>

namespace vellumark::ps {

[[nodiscard]] std::string CommentText(std::string_view utf8);

}  // namespace vellumark::ps
