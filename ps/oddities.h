// SPDX-License-Identifier: MIT
//
// What this writer does otherwise than a reader of the PostScript reference and of the document
// structuring conventions (DSC 3.0) would expect.
//
// Each is a decision of this house: files written over the years look like this, hosts compare them
// byte for byte, and interpreters cope. An output without them would replace what stands here and
// nothing else; each has a test of its name (tests/ps/oddities_test.cpp).
#pragma once

#include <cstddef>
#include <string>

namespace vellumark::ps::oddities {

/// A page comment carries the number of pages first and the page's own number second, where DSC
/// has the page's label and its number. Viewers show the count as every page's label.
inline std::string PageComment(std::size_t pages, std::size_t page) {
  return "%%Page: " + std::to_string(pages) + ' ' + std::to_string(page);
}

/// The page comment follows the page's background instead of opening the page: a program that cuts
/// the file at the comments gives each page's background to the page before it. Interpreters take
/// no notice of comments.
inline constexpr bool kPageCommentOpensThePage = false;

/// The rotation for Landscape and Rotated stands once, in the header. `showpage` gives the next
/// page a fresh coordinate system, so only the first page is turned and the later ones stand
/// upright.
inline constexpr bool kRotationIsRepeated = false;

/// Landscape and Rotated together turn by 180 degrees and move by height first, then width, where
/// the page's width belongs to x. On paper that is not square the page is shifted by the difference
/// of the two.
inline constexpr bool kTranslatesWidthFirst = false;

/// Text, titles and other properties are pasted between the parentheses or behind the comment as
/// the host gave them. A host escapes "(", ")" and "\" itself, and may write octal codes.
inline constexpr bool kTextIsEscaped = false;

/// A line's path is closed: it is stroked there and back.
inline constexpr bool kLinesAreClosed = true;

/// A solid line writes no dash: a dash set earlier on the page stays in force.
inline constexpr bool kSolidLinesResetTheDash = false;

/// A Create whose file cannot be created forgets the file that was open before, which stays empty.
inline constexpr bool kKeepsFileWhenCreateFails = false;

}  // namespace vellumark::ps::oddities
